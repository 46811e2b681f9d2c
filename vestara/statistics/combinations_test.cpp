#include "vestara/statistics/combinations.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using testing_support::error_of;

TEST(CombinationCount, KnownValues) {
  const struct {
    int16_t items, chosen;
    double count;
  } rows[] = {{10, 3, 120},
              {90, 5, 43949268},
              {90, 1, 90},
              {90, 2, 4005},
              {5, 5, 1},
              {5, 0, 0},  // not 1: the probabilities rely on it
              {5, -1, 0},
              {3, 5, 0},
              {0, 0, 0},
              {0, 1, 0},
              {0, 5, 0},
              {-1, 1, -1},
              {-1, 5, -1},
              {-3, 2, 6},
              {-3, 3, -10},
              {-32768, 0, 0},
              {-32767, 1, -32767},
              {32767, 1, 32767},
              {32767, 2, 536821761},
              {100, 170, 0}};
  for (const auto& row : rows)
    EXPECT_EQ(combination_count(row.items, row.chosen), row.count) << row.items << ' ' << row.chosen;
}

TEST(CombinationCount, EveryHandOfFiveOrFewerIsExact) {
  // The triangle: each entry is the sum of the two above it.
  int64_t triangle[91][6] = {{1}};
  for (int16_t n = 1; n <= 90; ++n) {
    triangle[n][0] = 1;
    for (int16_t k = 1; k <= 5; ++k) {
      triangle[n][k] = triangle[n - 1][k - 1] + triangle[n - 1][k];
      EXPECT_EQ(combination_count(n, k), static_cast<double>(triangle[n][k])) << n << ' ' << k;
    }
  }
}

TEST(CombinationCount, Overflow) {
  const struct {
    const char* what;
    int16_t items, chosen;
  } rows[] = {{"the items run below 16 bits", -32768, 1},
              {"in the second step", -32767, 2},
              {"the numerator is too large", 32767, 100},
              {"171! is too large", 100, 171},
              {"both", 171, 171},
              {"the largest of both", 32767, 32767}};
  for (const auto& row : rows) EXPECT_EQ(error_of([&] { combination_count(row.items, row.chosen); }), 6) << row.what;
}

}  // namespace
}  // namespace vestara
