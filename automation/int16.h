#pragma once

#include <cstdint>
#include <limits>

#include "automation/error.h"

namespace automation {

/// A 16-bit signed number whose every step raises error 6 instead of wrapping. Used where the contract counts
/// in 16 bits.
class Int16 {
 public:
  constexpr Int16() = default;
  constexpr Int16(int16_t value) : value_(value) {}
  /// Error 6 when the value does not fit.
  static constexpr Int16 checked(int64_t value) {
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max()) throw overflow();
    return Int16(static_cast<int16_t>(value));
  }

  constexpr int16_t value() const { return value_; }
  constexpr operator int16_t() const { return value_; }

  constexpr Int16& operator+=(Int16 other) { return *this = *this + other; }
  constexpr Int16& operator-=(Int16 other) { return *this = *this - other; }
  constexpr Int16& operator++() { return *this += Int16(1); }
  constexpr Int16& operator--() { return *this -= Int16(1); }
  friend constexpr Int16 operator+(Int16 a, Int16 b) { return checked(int64_t{a.value_} + b.value_); }
  friend constexpr Int16 operator-(Int16 a, Int16 b) { return checked(int64_t{a.value_} - b.value_); }
  friend constexpr Int16 operator*(Int16 a, Int16 b) { return checked(int64_t{a.value_} * b.value_); }
  friend constexpr bool operator==(Int16 a, Int16 b) = default;
  friend constexpr auto operator<=>(Int16 a, Int16 b) = default;

 private:
  int16_t value_ = 0;
};

/// 32-bit sums of the contract raise error 6 as well.
constexpr int32_t checked_long(int64_t value) {
  if (value < std::numeric_limits<int32_t>::min() || value > std::numeric_limits<int32_t>::max()) throw overflow();
  return static_cast<int32_t>(value);
}

}  // namespace automation
