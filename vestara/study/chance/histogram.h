#pragma once  // for hosts

#include <cstddef>
#include <cstdint>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara {

/// How often whole numbers fall into classes of one width, the first of which begins at a multiple of it.
struct Histogram {
  int64_t first = 0;  ///< least value of the first class
  int64_t width = 1;
  std::vector<size_t> counts;

  int64_t least(size_t index) const { return first + static_cast<int64_t>(index) * width; }
  int64_t most(size_t index) const { return least(index) + width - 1; }
};

/// Thirty classes at most, 1, 2 or 5 times a power of ten wide. The width follows the rule of Freedman and Diaconis
/// (twice the middle half's extent, over the cube root of the count). No values, no classes. Values are 0 or more.
VESTARA_API Histogram histogram_of(std::vector<int64_t> values);

}  // namespace vestara
