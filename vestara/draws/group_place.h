#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "vestara/foundation/wheel_grid.h"

// Every group of one to five numbers has a place among all groups of its size, from 0: (1,2), (1,3) … (89,90). Places
// are in the order of the groups' numbers. Source: the combinatorial number system, which counts the groups that come
// later: the sum of C(90-n, i) over the numbers n, the largest with i = 1.

namespace vestara {

/// Numbers of one drawing, or of a group: 1 to 90 each.
using DrawnNumbers = std::array<uint8_t, drawn_count>;

/// C(items, chosen) for up to ninety items and five chosen, exact.
class SmallChoices {
 public:
  constexpr SmallChoices() {
    for (size_t items = 0; items <= number_count; ++items) {
      ways_[0][items] = 1;
      for (size_t chosen = 1; chosen <= drawn_count; ++chosen)
        ways_[chosen][items] = items == 0 ? 0 : ways_[chosen][items - 1] + ways_[chosen - 1][items - 1];
    }
  }
  constexpr uint32_t operator()(size_t items, size_t chosen) const { return ways_[chosen][items]; }

 private:
  std::array<std::array<uint32_t, number_count + 1>, drawn_count + 1> ways_{};
};
inline constexpr SmallChoices choices;

/// The place of the first `size` numbers, which ascend.
constexpr uint32_t group_place(const DrawnNumbers& numbers, size_t size) {
  uint32_t place = choices(number_count, size) - 1;
  for (size_t i = 0; i < size; ++i) place -= choices(size_t{number_count} - numbers[i], size - i);
  return place;
}

/// The group of `size` numbers at a place, ascending; zeros after them.
constexpr DrawnNumbers group_at(uint32_t place, size_t size) {
  DrawnNumbers numbers{};
  uint32_t later = choices(number_count, size) - 1 - place;
  size_t above = number_count;
  for (size_t i = 0; i < size; ++i) {
    do --above;
    while (choices(above, size - i) > later);
    later -= choices(above, size - i);
    numbers[i] = static_cast<uint8_t>(number_count - above);
  }
  return numbers;
}

/// The numbers in ascending order.
inline DrawnNumbers ascending(DrawnNumbers numbers) {
  const auto order = [&](size_t left, size_t right) {
    const uint8_t smaller = numbers[left] < numbers[right] ? numbers[left] : numbers[right];
    numbers[right] = numbers[left] < numbers[right] ? numbers[right] : numbers[left];
    numbers[left] = smaller;
  };
  // A network of nine comparisons: no branch depends on the numbers.
  order(0, 3), order(1, 4);
  order(0, 2), order(1, 3);
  order(0, 1), order(2, 4);
  order(1, 2), order(3, 4);
  order(2, 3);
  return numbers;
}

}  // namespace vestara
