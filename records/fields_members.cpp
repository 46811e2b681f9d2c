#include "automation/member.h"
#include "records/fields.h"

namespace records {
namespace field_members {

using row = automation::Rows<Field>;

constexpr auto rows =
    automation::member_rows(row::read_only<&Field::Value>(0, "Value", "The value in the current row."),
                            row::read_only<&Field::Name>(1, "Name", "The column's name."));

}  // namespace field_members

namespace fields_members {

using row = automation::Rows<Fields>;

constexpr auto rows = automation::member_rows(
    row::read_only<&Fields::Item>(0, "Item", "A field by name or by place from 0.", automation::parameter("index")),
    row::read_only<&Fields::Count>(1, "Count", "How many fields there are."));

}  // namespace fields_members

const automation::ClassDescription& Field::surface() {
  static constexpr automation::ClassDescription surface{.library = "Dorvane",
                                                        .name = contract_name,
                                                        .interface_name = "_Field",
                                                        .help = "One column of a record set.",
                                                        .members = field_members::rows};
  return surface;
}

const automation::ClassDescription& Fields::surface() {
  static constexpr automation::ClassDescription surface{.library = "Dorvane",
                                                        .name = contract_name,
                                                        .interface_name = "_Fields",
                                                        .help = "The columns of a record set.",
                                                        .first_item = 0,
                                                        .members = fields_members::rows};
  return surface;
}

}  // namespace records
