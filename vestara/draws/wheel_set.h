#pragma once  // installed

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// The wheel (1 to 11) of a code in any case, blanks around it ignored; 0 when there is none.
VESTARA_API int32_t wheel_of_code(std::string_view code);

/// Some of the eleven wheels.
class WheelSet {
 public:
  static constexpr WheelSet all() { return WheelSet((1U << wheel_count) - 1); }
  static constexpr WheelSet cities() { return WheelSet((1U << (wheel_count - 1)) - 1); }

  constexpr WheelSet() = default;
  constexpr void add(int32_t wheel) { bits_ |= 1U << (wheel - 1); }
  constexpr bool contains(int32_t wheel) const { return (bits_ >> (wheel - 1) & 1U) != 0; }
  constexpr int32_t count() const { return std::popcount(bits_); }
  /// Ascending: BA CA FI GE MI NA PA RM TO VE RN.
  VESTARA_API std::vector<int32_t> wheels() const;
  /// What the wheels are called as one: "tutte" for the ten cities, "all" for the eleven, otherwise "BA+NA".
  VESTARA_API std::string name() const;
  bool operator==(const WheelSet&) const = default;

 private:
  constexpr explicit WheelSet(uint32_t bits) : bits_(bits) {}
  uint32_t bits_ = 0;
};

}  // namespace vestara
