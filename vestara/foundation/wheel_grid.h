#pragma once  // installed

#include <array>
#include <cstdint>
#include <vector>

#include "automation/error.h"
#include "vestara/foundation/schema.h"

namespace vestara {

inline constexpr int32_t wheel_count = int32_t{wheel_aliases.size()};  ///< ten cities and the national wheel
inline constexpr int32_t all_wheels = 12;                              ///< as a wheel argument: no wheel in particular
inline constexpr int32_t number_count = 90;                            ///< numbers in the urn
inline constexpr int32_t drawn_count = 5;                              ///< numbers drawn on a wheel

/// One cell per wheel 1..11 and number 1..90, in one block. It has no cells until it is filled.
template <class Cell>
class WheelGrid {
 public:
  bool is_filled() const { return !cells_.empty(); }
  /// All 990 cells become `value`, whatever was there.
  void fill(Cell value) { cells_.assign(size_t{wheel_count} * number_count, value); }
  void clear() { cells_.clear(); }

  /// Error 9 outside 1..11 and 1..90, and for every index before the grid is filled.
  Cell& at(int32_t wheel, int32_t number) { return cells_[place(wheel, number)]; }
  const Cell& at(int32_t wheel, int32_t number) const { return cells_[place(wheel, number)]; }

 private:
  size_t place(int32_t wheel, int32_t number) const {
    if (cells_.empty() || wheel < 1 || wheel > wheel_count || number < 1 || number > number_count)
      throw automation::subscript_out_of_range();
    return static_cast<size_t>(wheel - 1) * number_count + static_cast<size_t>(number - 1);
  }
  std::vector<Cell> cells_;
};

/// One value per wheel 1..11. Error 9 outside.
template <class Value>
class PerWheel {
 public:
  Value& at(int32_t wheel) {
    if (wheel < 1 || wheel > wheel_count) throw automation::subscript_out_of_range();
    return values_[static_cast<size_t>(wheel - 1)];
  }

 private:
  std::array<Value, wheel_count> values_{};
};

inline void FillWheelGridInt(WheelGrid<int16_t>& grid, int16_t value) { grid.fill(value); }
inline void FillWheelGridSingle(WheelGrid<float>& grid, int16_t value) { grid.fill(static_cast<float>(value)); }

}  // namespace vestara
