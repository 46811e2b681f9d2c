#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vestara/foundation/export.h"

namespace vestara {

// The sets of numbers that players start a system from, as lists "1,11,21". Nothing is checked against the 90 numbers.
// Error 6 where a step leaves its range.

inline constexpr std::string_view twin_numbers = "11,22,33,44,55,66,77,88";
inline constexpr std::string_view reversible_numbers = "12,21,13,31,14,41,15,51,16,61,17,71,18,81";

/// Numbers with the same last digit, ten apart, up to 90.
VESTARA_API std::string same_ending(int16_t first);
/// Ten numbers, each the sum of the two before; the one after a term that equals `first` is twice `first`.
VESTARA_API std::string fibonacci_run(int16_t first);
/// The ten of 90 ("1,…,9,90"), or eleven numbers from `first` on. One more than ten is the contract's.
VESTARA_API std::string ten_numbers(int16_t first);
/// Numbers nine apart, up to 80, which is the contract's: the last number of a figure is not always reached.
VESTARA_API std::string same_figure(int16_t first);

}  // namespace vestara
