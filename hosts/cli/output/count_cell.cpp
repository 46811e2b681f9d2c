#include "hosts/cli/output/count_cell.h"

#include <limits>

namespace vestara::host {

Cell count_cell(ExactCount count) {
  if (count <= static_cast<uint64_t>(std::numeric_limits<int64_t>::max())) return static_cast<int64_t>(count);
  return digits_of(count);
}

}  // namespace vestara::host
