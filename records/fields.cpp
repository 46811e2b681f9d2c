#include "records/fields.h"

#include <array>
#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/member.h"

namespace records {

using Column;
using automation::Ref;
using automation::Variant;

Field::Field(Ref<RecordSet> rows, Column column) : rows_(std::move(rows)), column_(column) {}
std::string Field::Name() const { return rows_->column_name(column_); }
Variant Field::Value() const { return rows_->value(column_); }

Fields::Fields(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
int32_t Fields::Count() const { return rows_->column_count(); }

Ref<Field> Fields::Item(const Variant& index) const {
  if (index.is_object()) return Item(automation::to_plain(index));
  if (const auto* name = index.get_if<std::string>()) return automation::make<Field>(rows_, rows_->column(*name));
  const Column column{automation::to_long(index)};
  if (column.index < 0 || column.index >= Count()) throw automation::item_not_found();
  return automation::make<Field>(rows_, column);
}

namespace {

using field_row = automation::Rows<Field>;
constexpr std::array field_members{
    field_row::read_only<&Field::Value>(0, "Value", "The value in the current row."),
    field_row::read_only<&Field::Name>(1, "Name", "The column's name."),
};

using fields_row = automation::Rows<Fields>;
constexpr std::array fields_members{
    fields_row::read_only<&Fields::Item>(0, "Item", "A field by name or by place from 0.",
                                         automation::parameter("index")),
    fields_row::read_only<&Fields::Count>(1, "Count", "How many fields there are."),
};

}  // namespace

const automation::ClassDescription& Field::description() const {
  static constexpr automation::ClassDescription description{.library = "Dorvane",
                                                            .name = contract_name,
                                                            .interface_name = "_Field",
                                                            .help = "One column of a record set.",
                                                            .members = field_members};
  return description;
}

const automation::ClassDescription& Fields::description() const {
  static constexpr automation::ClassDescription description{.library = "Dorvane",
                                                            .name = contract_name,
                                                            .interface_name = "_Fields",
                                                            .help = "The columns of a record set.",
                                                            .members = fields_members};
  return description;
}

}  // namespace records
