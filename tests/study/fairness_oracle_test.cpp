#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/support/study_fairness_oracle.h"

// The oracle of fairness against published examples, against counts made by hand and against integrals.

namespace testing_support::study {
namespace {

using Drawings = std::vector<Numbers>;

TEST(ChiSquareTail, PublishedExamples) {
  const struct {
    long double value;
    int32_t degrees;
    double p, tolerance;
  } rows[] = {{8, 11, 0.7133, 5e-5},
              {1.6L, 1, 0.2059, 5e-5},
              {40, 1, 2.54e-10, 5e-13},
              {34.5L, 19, 0.01603, 5e-6},
              {116.3627L, 89, 0.027384, 5e-7},
              {92.2322L, 89, .3862, 5e-5},
              {0.4023L, 3, 0.9398, 5e-5},
              {5.2681L, 12, .9484, 5e-5},
              {3927.150L, 3915, .4424745571, 5e-11},
              {5.6255L, 5, .3444, 5e-5},
              {0, 4, 1, 0},
              {-1, 3, 1, 0},
              {100000, 89, 0, 0},
              {1e-9L, 3915, 1, 1e-15}};
  for (const auto& row : rows)
    EXPECT_NEAR(static_cast<double>(chi_square_tail(row.value, row.degrees)), row.p, row.tolerance)
        << row.value << ", " << row.degrees;
}

/// The density from `value` on, by Simpson's rule in `steps` steps; the rest behind is too small to be seen.
long double integrated_tail(long double value, int32_t degrees) {
  const long double half = degrees / 2.0L;
  const auto density = [&](long double x) {
    return std::exp((half - 1) * std::log(x) - x / 2 - half * std::log(2.0L) - std::lgamma(half));
  };
  constexpr int steps = 40000;
  const long double width = (static_cast<long double>(degrees) + 40 * std::sqrt(2.0L * degrees) + 120) / steps;
  long double sum = 0;
  for (int i = 0; i <= steps; ++i) {
    const int weight = i == 0 || i == steps ? 1 : 2 + 2 * (i % 2);
    sum += weight * density(value + i * width);
  }
  return sum * width / 3;
}

TEST(ChiSquareTail, IsTheIntegralOfTheDensity) {
  for (const int32_t degrees : {3, 5, 12, 89, 3915})
    for (const long double spreads : {-4.0L, -2.0L, -0.5L, 0.0L, 0.7L, 3.0L, 8.0L}) {
      const long double value = static_cast<long double>(degrees) + spreads * std::sqrt(2.0L * degrees);
      if (value < 0.2L) continue;
      const auto tail = static_cast<double>(chi_square_tail(value, degrees));
      EXPECT_NEAR(static_cast<double>(integrated_tail(value, degrees)) / tail, 1, 1e-9) << degrees << " " << value;
    }
}

TEST(TwoSided, KnownPlaces) {
  EXPECT_NEAR(static_cast<double>(two_sided(0)), 1, 1e-15);
  EXPECT_NEAR(static_cast<double>(two_sided(1.959963984540054L)), 0.05, 1e-15);
  EXPECT_NEAR(static_cast<double>(two_sided(-2.575829303548901L)), 0.01, 1e-15);
}

TEST(Holm, PublishedExamples) {
  const struct {
    std::vector<double> p, adjusted;
  } rows[] = {{{.011, .02, .005, .13, .04}, {.044, .06, .025, .13, .08}},
              {{.1496, .0275, .3053, .1599, .2061}, {.5984, .1375, .5984, .5984, .5984}},
              {{.4, .3, .4}, {.9, .9, .9}},
              {{.6, .7}, {1, 1}},
              {{}, {}}};
  for (const auto& row : rows) {
    const auto adjusted = holm(row.p);
    ASSERT_EQ(adjusted.size(), row.adjusted.size());
    for (size_t i = 0; i < adjusted.size(); ++i) EXPECT_NEAR(adjusted[i], row.adjusted[i], 1e-12);
  }
}

TEST(FairnessOracle, ExpectedGapsAddUp) {
  for (const size_t draws : {size_t{2}, size_t{10}, size_t{100}, size_t{2000}}) {
    long double sum = 0;
    for (const long double cell : expected_gaps(draws)) sum += cell;
    const auto count = static_cast<long double>(draws);
    EXPECT_NEAR(static_cast<double>(sum), static_cast<double>(5 * count - 90 * (1 - std::pow(17 / 18.0L, count))), 1e-9)
        << "every appearance but the first closes a gap";
  }
}

TEST(FairnessOracle, ClosedGapsByHand) {
  Drawings draws{{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}, {1, 12, 13, 14, 15}};
  while (draws.size() < 80) draws.push_back({86, 87, 88, 89, 90});
  draws.push_back({2, 6, 7, 13, 1});
  // 1 after 1 and after 77 draws, 2 after 79, 6 and 7 after 78, 13 after 77, and 86 to 90 in 77 successive draws.
  EXPECT_EQ(closed_gaps(draws), (GapClasses{1 + 5 * 76, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}));
}

/// Two drawings in turn, 50 times each.
Drawings in_turn() {
  Drawings draws;
  for (int i = 0; i < 50; ++i) {
    draws.push_back({5, 4, 3, 2, 1});
    draws.push_back({6, 7, 8, 9, 10});
  }
  return draws;
}

TEST(FairnessOracle, TwoDrawingsInTurn) {
  const long double number = 500 / 90.0L;
  const long double pair = 1000 / 4005.0L;
  const long double first = 100 / 90.0L;
  const long double q1 = 89 / 85.0L * (10 * (50 - number) * (50 - number) / number + 80 * number);
  const long double pairs = 20 * (50 - pair) * (50 - pair) / pair + 3985 * pair;
  const long double parity = 2 * (50 - 31.96435L) * (50 - 31.96435L) / 31.96435L + 2 * 15.25571L + 2 * 2.77993L;
  const struct {
    const char* test;
    long double statistic;
    automation::Variant degrees;
  } rows[] = {{"numbers", q1, 89},
              {"pairs", (pairs - 3.863636364L * q1) / 0.932602L, 3915},
              {"first", 2 * (50 - first) * (50 - first) / first + 88 * first, 89},
              {"parity", parity, 5},
              {"sum", (27.5L - 227.5L) / std::sqrt(32.229167L), automation::Null{}},
              {"serial", -9.9L, automation::Null{}}};
  const auto results = fairness_of(in_turn());
  ASSERT_EQ(results.size(), std::size(rows)) << "overlap and gaps need 2,000 draws";
  for (size_t i = 0; i < results.size(); ++i) {
    EXPECT_EQ(results[i].test, rows[i].test);
    EXPECT_NEAR(results[i].statistic / static_cast<double>(rows[i].statistic), 1, 1e-6) << rows[i].test;
    EXPECT_TRUE(results[i].degrees == rows[i].degrees) << rows[i].test;
  }
  EXPECT_EQ(overlaps(in_turn()), (std::array<long double, 4>{99, 0, 0, 0}));
  EXPECT_EQ(even_counts(in_turn()), (std::array<long double, 6>{0, 0, 50, 50, 0, 0}));
  EXPECT_EQ(even_counts({{2, 4, 9, 6, 8}}), (std::array<long double, 6>{0, 0, 0, 0, 1, 0}));
}

TEST(FairnessOracle, RowsThatCannotBe) {
  Draws draws;
  int32_t day = 0;
  for (const auto& drawing : in_turn()) draws.push_back({++day, 1, 0, drawing});
  draws.push_back({1, 1, 3, {1, 2, 3, 4, 5}});
  const auto nulls = [](const Table& table) {
    return std::ranges::count_if(table.rows, [](const auto& row) { return row[2].is_null() && row[5].is_null(); });
  };
  const Table both = fairness(draws, {.wheels = {0, 3}});
  EXPECT_EQ(both.rows.size(), 16U);
  EXPECT_EQ(nulls(both), 2 + 8) << "two tests of BA, all of a wheel with one draw";
  EXPECT_EQ(both.rows[1][1], automation::Variant("pairs"));
  EXPECT_EQ(fairness(draws, {.wheels = {4}}).rows.size(), 0U);
  draws.erase(draws.begin());
  EXPECT_EQ(nulls(fairness(draws, {.wheels = {0}})), 8) << "99 draws";
}

}  // namespace
}  // namespace testing_support::study
