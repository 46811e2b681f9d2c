#include "automation/collection.h"

#include <array>

#include "automation/error.h"
#include "automation/member.h"

namespace automation {
namespace {

using row = Rows<Collection>;

constexpr std::array members{
    row::read_only<&Collection::Item>(0, "Item", "An item by its place from 1.", parameter("index")),
    row::read_only<&Collection::Count>(1, "Count", "How many items there are."),
};

}  // namespace

Variant Collection::Item(int32_t index) const {
  if (index < 1 || index > Count()) throw subscript_out_of_range();
  return items_[static_cast<size_t>(index - 1)];
}

const ClassDescription& Collection::description() const {
  static constexpr ClassDescription description{.library = "Automation",
                                                .name = contract_name,
                                                .interface_name = "_Collection",
                                                .help = "An ordered collection, counted from 1.",
                                                .members = members};
  return description;
}

}  // namespace automation
