#include "vestara/study/chance/chance.h"

#include <gtest/gtest.h>

#include <numeric>

namespace vestara {
namespace {

TEST(Chance, OfAnAppearance) {
  struct Row {
    size_t numbers;
    double wheels, chance;
  };
  for (const Row& row : {Row{1, 1, 5.0 / 90},
                         {2, 1, 20.0 / 8010},
                         {1, 2, 1 - 85.0 / 90 * 85 / 90},
                         {2, 2, 1 - 7990.0 / 8010 * 7990 / 8010},
                         {1, 0, 0}})
    EXPECT_NEAR(appearance_chance(row.numbers, row.wheels), row.chance, 1e-12) << row.numbers << " " << row.wheels;
  EXPECT_GT(appearance_chance(1, 9.5), appearance_chance(1, 9));
  EXPECT_LT(appearance_chance(1, 9.5), appearance_chance(1, 10));
}

TEST(Chance, ExpectsAGeometricSeries) {
  struct Row {
    const char* why;
    Histogram histogram;
    double chance;
    std::vector<double> expected;
  };
  for (const Row& row : {Row{"single draws", {1, 1, {60, 30, 10}}, 0.5, {50, 25, 12.5}},
                         {"a class that begins before 1", {0, 2, {6, 2}}, 0.5, {4, 3}},
                         {"a later first class", {3, 1, {8}}, 0.5, {1}},
                         {"certain", {1, 1, {5, 0}}, 1, {5, 0}},
                         {"nothing", {}, 0.5, {}}}) {
    const auto expected = expected_counts(row.histogram, row.chance);
    ASSERT_EQ(expected.size(), row.expected.size()) << row.why;
    for (size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(expected[i], row.expected[i], 1e-12) << row.why;
  }
}

TEST(Chance, LosesNothingInALongHistogram) {
  const Histogram histogram{0, 10, std::vector<size_t>(100, 7)};
  const auto expected = expected_counts(histogram, 5.0 / 90);
  EXPECT_NEAR(std::accumulate(expected.begin(), expected.end(), 0.0), 700, 1e-6);
}

}  // namespace
}  // namespace vestara
