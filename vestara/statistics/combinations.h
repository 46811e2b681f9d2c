#pragma once  // for hosts

#include <cstdint>
#include <functional>

#include "vestara/foundation/combination_walk.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// How many ways there are to choose `chosen` of `items` things: n (n-1) ... (n-k+1) / k!, exact as long as both
/// products are below 2^53. 0 for none or fewer to choose, which is the contract's: the percentages rely on it. Error 6
/// when a product is too large for a double, or when `items`, counted down, leaves 16 bits.
VESTARA_API double combination_count(int16_t items, int16_t chosen);

/// Counts ways as `combination_count` does.
using Ways = std::function<double(int16_t items, int16_t chosen)>;

/// The probability, in percent, that a draw holds at least `size` of `played` numbers on at least one of `wheels`
/// wheels: 1 - (S / C(90,5))^wheels, S being the draws of a wheel that hold fewer. Fewer than one wheel count as one.
/// Error 6 where a step leaves its range.
VESTARA_API double theoretical_percent(int16_t played, int16_t size, int16_t wheels,
                                       const Ways& ways = combination_count);

}  // namespace vestara
