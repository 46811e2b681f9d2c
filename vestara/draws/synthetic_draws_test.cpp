#include "vestara/draws/synthetic_draws.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

#include "automation/date.h"
#include "vestara/draws/wheel_names.h"

namespace vestara {
namespace {

std::vector<DrawRow> draws_of(uint64_t seed, int32_t from, int32_t to) {
  std::vector<DrawRow> draws;
  synthetic_draws(seed, from, to, [&](const DrawRow& row) {
    draws.push_back(row);
    return true;
  });
  return draws;
}

const int32_t start = automation::day_from_civil(1871, 1, 7);

// A change of these rows changes every file that was ever generated.
TEST(SyntheticDraws, ASeedGivesTheSameRowsEverywhere) {
  std::string text;
  for (const DrawRow& row : draws_of(1, start, start)) {
    text.append(automation::iso_day(automation::Date::from_day(row.day))).append(" ").append(wheel_code(row.wheel));
    for (const int8_t number : row.numbers) text.append(" ").append(std::to_string(number));
    text.append("\n");
  }
  EXPECT_EQ(text,
            "1871-01-07 FI 69 57 1 31 5\n"
            "1871-01-07 MI 70 14 84 24 83\n"
            "1871-01-07 NA 2 78 80 45 9\n"
            "1871-01-07 PA 64 42 37 54 25\n"
            "1871-01-07 RM 31 64 71 76 36\n"
            "1871-01-07 TO 9 61 54 15 23\n"
            "1871-01-07 VE 2 84 52 18 67\n");
}

TEST(SyntheticDraws, TheBoundsDoNotMatter) {
  const auto all = draws_of(5, start, start + 3000);
  const auto part = draws_of(5, start + 700, start + 1400);
  ASSERT_FALSE(part.empty());
  size_t place = 0;
  while (all[place].day < start + 700) ++place;
  for (size_t i = 0; i < part.size(); ++i) EXPECT_TRUE(same_draw(part[i], all[place + i]));
  EXPECT_GT(all[place + part.size()].day, start + 1400);
}

TEST(SyntheticDraws, EverySeedIsAnother) {
  const auto one = draws_of(1, start, start + 70);
  const auto two = draws_of(2, start, start + 70);
  ASSERT_EQ(one.size(), two.size());
  EXPECT_FALSE(one[0].numbers == two[0].numbers && one[1].numbers == two[1].numbers);
}

TEST(SyntheticDraws, AllNumbersComeAboutEquallyOften) {
  std::array<int, 91> count{};
  const auto draws = draws_of(3, start, start + 20000);
  for (const DrawRow& row : draws) {
    EXPECT_EQ(std::set<int8_t>(row.numbers.begin(), row.numbers.end()).size(), 5U);
    for (const int8_t number : row.numbers) ++count.at(static_cast<size_t>(number));
  }
  EXPECT_EQ(count[0], 0);
  const int expected = static_cast<int>(draws.size()) * 5 / 90;
  for (size_t number = 1; number <= 90; ++number) EXPECT_NEAR(count.at(number), expected, expected / 5) << number;
}

TEST(SyntheticDraws, EndsWhenNobodyTakesMore) {
  int taken = 0;
  synthetic_draws(1, start, start + 1000, [&](const DrawRow&) { return ++taken < 10; });
  EXPECT_EQ(taken, 10);
}

}  // namespace
}  // namespace vestara
