#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/delay_oracle.h"

// Distances between successive appearances, computed the slow and obvious way: put the draws in order, give each its
// place in the count, write down the place of every number and pair, subtract neighbours.

namespace testing_support {

struct DistanceQuery {
  DrawQuery draws;  ///< the wheels do not matter over all wheels
  bool all_wheels = false;
  bool pairs = false;
  bool without_national = false;  ///< matters over all wheels only
  bool ascending = false;
};

/// Wheel (-1 for all), number, second number (0 for a number alone).
using DistanceKey = std::tuple<int32_t, int32_t, int32_t>;

/// What a load leaves behind.
struct DistanceFigures {
  std::map<DistanceKey, std::vector<int32_t>> lists;  ///< none is empty
  int32_t error = 0;                                  ///< that ended the load
};

DistanceFigures distances_of(const Archive& archive, const DistanceQuery& query);

/// Mean, smallest and largest distance behind the first; there is one.
std::tuple<double, double, double> means_of(const std::vector<int32_t>& list);

}  // namespace testing_support
