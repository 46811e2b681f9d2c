#pragma once  // installed

#include <cstdint>

#include "vestara/foundation/combination_walk.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// How many ways there are to choose `chosen` of `items` things: n (n-1) ... (n-k+1) / k!, exact as long as both
/// products are below 2^53. 0 for none or fewer to choose, on purpose: the probabilities rely on it. Error 6 when a
/// product is too large for a double, or `items` runs below 16 bits.
VESTARA_API double combination_count(int16_t items, int16_t chosen);

}  // namespace vestara
