#pragma once

#include <cstdint>

#include "automation/variant.h"

namespace vestara {

enum class Repetition : bool { excluded, allowed };

inline constexpr int32_t most_random_numbers = 1 << 24;
/// `count` random whole numbers from `least` to `most`, in an array from 0. The generator is seeded from the clock.
/// Without repetition a count larger than the range never ends, which is the contract's. The host is yielded to after
/// each try and may end it. Errors: 9 for no numbers and an empty range, 7 beyond `most_random_numbers` and for a range
/// of more than 2^30 numbers that may not repeat.
automation::Array random_series(int32_t count, int32_t least, int32_t most, Repetition repetition);

/// Sorts the elements of a one-dimensional array by the 32-bit numbers that they convert to, ascending; equal ones keep
/// their order. Errors: 13 for an element that is no number, and for what is no array; 9 for an array that has not one
/// dimension. The exchanges made before it met such an element stay. A single element is not looked at.
void sort_by_number(automation::Variant& array);

}  // namespace vestara
