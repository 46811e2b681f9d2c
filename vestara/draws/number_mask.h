#pragma once

#include <bit>
#include <cstdint>

namespace vestara {

/// A set of numbers from 1 to 90, a bit each.
struct NumberMask {
  uint64_t low = 0;   ///< 1 to 64, from the lowest bit
  uint64_t high = 0;  ///< 65 to 90

  constexpr void add(int32_t number) {
    if (number <= 64)
      low |= uint64_t{1} << (number - 1);
    else
      high |= uint64_t{1} << (number - 65);
  }
  constexpr bool contains(int32_t number) const {
    return ((number <= 64 ? low >> (number - 1) : high >> (number - 65)) & 1U) != 0;
  }
  constexpr int32_t count() const { return std::popcount(low) + std::popcount(high); }

  friend constexpr NumberMask operator&(NumberMask left, NumberMask right) {
    return {left.low & right.low, left.high & right.high};
  }
  bool operator==(const NumberMask&) const = default;
};

}  // namespace vestara
