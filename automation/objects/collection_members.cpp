#include "automation/collection.h"
#include "automation/member.h"

namespace automation {
namespace collection_members {

using row = Rows<Collection>;

constexpr auto rows =
    member_rows(row::read_only<&Collection::Item>(0, "Item", "An item by its place from 1.", parameter("index")),
                row::read_only<&Collection::Count>(1, "Count", "How many items there are."));

}  // namespace collection_members

const ClassDescription& Collection::surface() {
  static constexpr ClassDescription surface{.library = "Automation",
                                            .name = contract_name,
                                            .interface_name = "_Collection",
                                            .help = "An ordered collection, counted from 1.",
                                            .first_item = 1,
                                            .members = collection_members::rows};
  return surface;
}

}  // namespace automation
