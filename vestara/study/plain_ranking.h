#pragma once  // for hosts

#include <algorithm>
#include <cstdint>
#include <vector>

#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/ranking.h"

namespace vestara {

/// Every number of the wheels, sorted by its figure, the largest first; equal ones in the order of wheel and number.
template <class Value>
std::vector<RankingEntry<Value>> plain_ranking(const WheelGrid<Value>& grid, const std::vector<int16_t>& wheels) {
  std::vector<RankingEntry<Value>> ranking;
  ranking.reserve(wheels.size() * number_count);
  for (const int16_t wheel : wheels)
    for (int16_t number = 1; number <= number_count; ++number)
      ranking.push_back({number, wheel, grid.at(wheel, number)});
  std::stable_sort(ranking.begin(), ranking.end(),
                   [](const auto& left, const auto& right) { return left.value > right.value; });
  return ranking;
}

}  // namespace vestara
