#pragma once  // for hosts

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara {

/// How many ways there are to choose `chosen` of `items`: a falling product in double precision over a 32-bit
/// factorial. 0 for none to choose; error 6 for 13 or more, whose factorial does not fit: both are the contract's.
VESTARA_API double integral_count(int16_t items, int16_t chosen);

/// One line per combination of `chosen` of the items, in lexicographic order of their places, joined by ",": no break
/// after the last line. `count` is how many there are; `chosen` is 1 to the number of items. Yields to the host after
/// each line.
VESTARA_API std::string integral_lines(std::span<const std::string_view> items, int16_t chosen, int32_t count);

/// The same combinations as bit masks, bit 0 standing for the first item. Error 9 for more than 32 items and for a
/// `chosen` outside 1 to `items`.
VESTARA_API std::vector<uint32_t> integral_masks(int16_t items, int16_t chosen);

}  // namespace vestara
