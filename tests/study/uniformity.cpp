#include "tests/study/uniformity.h"

#include <algorithm>
#include <cmath>

#include "tests/study/random_history.h"

namespace study_test {

using testing_support::Archive;
using testing_support::Random;

double uniform_chance(std::vector<double> values) {
  std::ranges::sort(values);
  const auto count = static_cast<double>(values.size());
  double distance = 0;
  for (size_t i = 0; i < values.size(); ++i) {
    const auto below = static_cast<double>(i);
    distance = std::max({distance, values[i] - below / count, (below + 1) / count - values[i]});
  }
  const double scaled = distance * (std::sqrt(count) + 0.12 + 0.11 / std::sqrt(count));
  if (scaled < 0.2) return 1;
  double chance = 0;
  for (int k = 1; k <= 100; ++k) chance += (k % 2 == 1 ? 2 : -2) * std::exp(-2.0 * k * k * scaled * scaled);
  return chance;
}

Archive biased_history(Random& random, size_t draws) {
  constexpr int32_t biased = 53;
  constexpr double chance = 1.4 * 5 / 90;
  constexpr size_t parts = 1'000'000'000;
  auto others = every_number();
  std::erase(others, biased);
  Archive archive;
  for (auto& row : fair_history(random, "BA", draws)) {
    row.numbers = random_drawing(random, others);
    if (random.below(parts) < static_cast<size_t>(chance * parts)) row.numbers.at(random.below(5)) = biased;
    archive.push_back(row);
  }
  return archive;
}

}  // namespace study_test
