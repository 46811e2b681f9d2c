#include "vestara/study/chance/chance.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vestara {
namespace {

/// That the first appearance takes `draws` or more.
double wait_of(double chance, int64_t draws) {
  return std::pow(1 - chance, static_cast<double>(std::max<int64_t>(draws, 1) - 1));
}

}  // namespace

double appearance_chance(size_t numbers, double wheels) {
  constexpr double number_on_wheel = 5.0 / 90;
  constexpr double pair_on_wheel = 20.0 / 8010;  // the pairs of five numbers among those of ninety
  const double on_wheel = numbers == 1 ? number_on_wheel : pair_on_wheel;
  return wheels == 1 ? on_wheel : -std::expm1(wheels * std::log1p(-on_wheel));
}

std::vector<double> expected_counts(const Histogram& histogram, double chance) {
  const auto all = static_cast<double>(std::accumulate(histogram.counts.begin(), histogram.counts.end(), size_t{0}));
  std::vector<double> expected;
  for (size_t i = 0; i < histogram.counts.size(); ++i)
    expected.push_back(all * (wait_of(chance, histogram.least(i)) - wait_of(chance, histogram.most(i) + 1)));
  return expected;
}

}  // namespace vestara
