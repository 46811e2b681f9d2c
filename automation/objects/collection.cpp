#include "automation/collection.h"

#include "automation/error.h"

namespace automation {

Variant Collection::Item(int32_t index) const {
  if (index < 1 || index > Count()) throw subscript_out_of_range();
  return items_[static_cast<size_t>(index - 1)];
}

}  // namespace automation
