#include "automation/values/doubles.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/variant.h"
#include "tests/support/values.h"

namespace automation {
namespace {

using testing_support::outcome;

constexpr double most = std::numeric_limits<double>::max();
constexpr double least = std::numeric_limits<double>::denorm_min();
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(Doubles, OnlyFiniteOnesPass) {
  EXPECT_EQ(outcome([] { return finite(1.5); }), "Double 1.5");
  EXPECT_EQ(outcome([] { return finite(-most); }), outcome([] { return -most; }));
  for (const double value : {infinite, -infinite, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_EQ(outcome([&] { return finite(value); }), "error 6");
}

TEST(Doubles, Quotients) {
  const struct {
    double dividend, divisor;
    const char* result;
  } rows[] = {{1, 4, "Double 0.25"},  {0, 4, "Double 0"},   {-3, 2, "Double -1.5"}, {1, 0, "error 11"},
              {-1, 0.0, "error 11"},  {0, 0, "error 6"},    {most, 0.5, "error 6"}, {1, least, "error 6"},
              {least, 4, "Double 0"}, {0, -2, "Double -0"}, {5, -0.0, "error 11"}};
  for (const auto& row : rows)
    EXPECT_EQ(outcome([&] { return quotient(row.dividend, row.divisor); }), row.result)
        << row.dividend << '/' << row.divisor;
}

TEST(Doubles, SquareRoots) {
  const struct {
    double value;
    const char* result;
  } rows[] = {{0, "Double 0"}, {2.25, "Double 1.5"}, {-least, "error 5"}, {-1, "error 5"}, {infinite, "error 6"}};
  for (const auto& row : rows) EXPECT_EQ(outcome([&] { return square_root(row.value); }), row.result) << row.value;
}

}  // namespace
}  // namespace automation
