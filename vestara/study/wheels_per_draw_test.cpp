#include "vestara/study/wheels_per_draw.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vestara {
namespace {

TEST(WheelsPerDraw, ExpectsWhatEachDrawGives) {
  struct Row {
    WheelsPerDraw::Draws draws;
    int64_t count, wheels;
    double expected;  ///< of one number
  };
  constexpr double miss = 85.0 / 90;
  for (const Row& row : {Row{{}, 0, 0, 0},
                         {{5}, 0, 0, 0},
                         {{0, 18}, 18, 18, 1},
                         {{0, 0, 2}, 2, 4, 2 * (1 - miss * miss)},
                         {{0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3}, 4, 34, (1 - miss) + 3 * (1 - std::pow(miss, 11))}}) {
    const WheelsPerDraw draws(row.draws);
    EXPECT_EQ(draws.draws(), row.count);
    EXPECT_EQ(draws.wheels(), row.wheels);
    EXPECT_NEAR(draws.expected_hits(1, 1), row.expected, 1e-12);
  }
}

}  // namespace
}  // namespace vestara
