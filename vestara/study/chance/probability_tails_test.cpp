#include "vestara/study/chance/probability_tails.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vestara::study {
namespace {

/// For even degrees: the chance that a Poisson variable of mean x/2 lies below half the degrees, term by term.
double poisson_sum(double statistic, int32_t degrees) {
  const double mean = statistic / 2;
  double sum = 0;
  for (int32_t k = 0; k < degrees / 2; ++k) sum += std::exp(k * std::log(mean) - mean - std::lgamma(k + 1.0));
  return sum;
}

TEST(ProbabilityTails, OfChiSquareAsPublished) {
  const struct {
    const char* what;
    double statistic, degrees, p, within;
  } rows[] = {{"twelve balls in 220 drawings", 8, 11, 0.7133, 5e-5},
              {"a coin, 480 to 520", 1.6, 1, 0.2059, 5e-5},
              {"a coin, 600 to 400", 40, 1, 2.5e-10, 5e-12},
              {"twenty numbers in 655 drawings", 34.5, 19, 0.01603, 5e-6},
              {"89 degrees", 116.3627, 89, 0.0274, 5e-5},
              {"89 degrees in the middle", 92.2322, 89, 0.3862, 5e-5},
              {"pairs", 3927.150, 3915, 0.4425, 5e-5},
              {"pairs below the mean", 3838.211, 3915, 0.8068, 5e-5},
              {"three degrees", 5.0172, 3, 0.1705, 5e-5},
              {"twelve degrees", 5.2681, 12, 0.9484, 5e-5},
              {"nothing", 0, 7, 1, 0},
              {"beyond all doubt", 1e6, 3, 0, 0}};
  for (const auto& row : rows) EXPECT_NEAR(chi_square_tail(row.statistic, row.degrees), row.p, row.within) << row.what;
}

TEST(ProbabilityTails, OfChiSquareInClosedForm) {
  for (const double x : {1e-9, 0.01, 0.5, 1.0, 1.5, 2.9, 3.1, 10.0, 30.0, 60.0, 200.0}) {
    EXPECT_NEAR(chi_square_tail(x, 1) / std::erfc(std::sqrt(x / 2)), 1, 2e-13) << x;
    EXPECT_NEAR(chi_square_tail(x, 2) / std::exp(-x / 2), 1, 2e-13) << x;
    const double three = std::erfc(std::sqrt(x / 2)) + std::sqrt(2 * x / 3.14159265358979323846) * std::exp(-x / 2);
    EXPECT_NEAR(chi_square_tail(x, 3) / three, 1, 5e-13) << x;
  }
  for (const int32_t degrees : {4, 10, 30, 32, 34, 90, 400, 3914, 4000})
    for (const double of_degrees : {0.3, 0.9, 0.99, 1.0, 1.01, 1.1, 1.3, 2.0}) {
      const double x = of_degrees * degrees;
      EXPECT_NEAR(chi_square_tail(x, degrees), poisson_sum(x, degrees), 3e-12) << degrees << " " << x;
    }
}

TEST(ProbabilityTails, FallAsTheStatisticGrows) {
  for (const double degrees : {1.0, 5.0, 31.0, 89.0, 3915.0}) {
    double before = 1;
    for (double x = degrees / 50; x < degrees * 3; x += degrees / 50) {
      const double p = chi_square_tail(x, degrees);
      ASSERT_LE(p, before + 1e-15) << degrees << " " << x;
      ASSERT_GE(p, 0);
      before = p;
    }
  }
}

TEST(ProbabilityTails, OfANormalVariable) {
  const struct {
    double z, p;
  } rows[] = {{0, 1},
              {1, 0.31731050786291415},
              {-1, 0.31731050786291415},
              {1.959963984540054, 0.05},
              {3, 0.0026997960632601866},
              {6, 1.973175290075396e-9}};
  for (const auto& row : rows) EXPECT_NEAR(normal_tails(row.z), row.p, 1e-15 + row.p * 1e-12) << row.z;
}

TEST(ProbabilityTails, HolmsAdjustment) {
  using P = std::vector<std::optional<double>>;
  const std::optional<double> none;
  const struct {
    const char* what;
    P p, adjusted;
  } rows[] = {
      {"five tests", {0.011, 0.02, 0.005, 0.13, 0.04}, {0.044, 0.06, 0.025, 0.13, 0.08}},
      {"all alike in the end", {0.1496, 0.0275, 0.3053, 0.1599, 0.2061}, {0.5984, 0.1375, 0.5984, 0.5984, 0.5984}},
      {"one", {0.2}, {0.2}},
      {"above one", {0.9, 0.8}, {1.0, 1.0}},
      {"equal", {0.01, 0.01}, {0.02, 0.02}},
      {"what is missing does not count", {none, 0.01, none, 0.04}, {none, 0.02, none, 0.04}},
      {"none", {none}, {none}},
      {"nothing", {}, {}},
  };
  for (const auto& row : rows) {
    const P adjusted = holm_adjusted(row.p);
    ASSERT_EQ(adjusted.size(), row.adjusted.size()) << row.what;
    for (size_t i = 0; i < adjusted.size(); ++i) {
      ASSERT_EQ(adjusted[i].has_value(), row.adjusted[i].has_value()) << row.what;
      if (adjusted[i]) {
        EXPECT_NEAR(*adjusted[i], *row.adjusted[i], 1e-12) << row.what << " " << i;
      }
    }
  }
  const P fifteen{.0001, .0004, .0019, .0095, .0201, .0278, .0298, .0344,
                  .0459, .3240, .4262, .5719, .6528, .7590, 1.0};
  const P adjusted = holm_adjusted(fifteen);
  const double first[] = {.0015, .0056, .0247, .114};
  for (size_t i = 0; i < 4; ++i) EXPECT_NEAR(*adjusted[i], first[i], 1e-12) << "three of fifteen stay below 0.05";
}

}  // namespace
}  // namespace vestara::study
