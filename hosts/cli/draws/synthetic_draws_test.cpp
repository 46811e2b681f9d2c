#include "hosts/cli/draws/synthetic_draws.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

#include "automation/date.h"
#include "hosts/cli/files/draw_file_writer.h"

namespace vestara::host {
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
  DrawFileWriter writer(DrawFormat::tsv);
  for (const DrawRow& row : draws_of(1, start, start)) writer.add(text, row);
  EXPECT_EQ(text,
            "1871/01/07\tFI\t69\t57\t1\t31\t5\n"
            "1871/01/07\tMI\t70\t14\t84\t24\t83\n"
            "1871/01/07\tNA\t2\t78\t80\t45\t9\n"
            "1871/01/07\tPA\t64\t42\t37\t54\t25\n"
            "1871/01/07\tRM\t31\t64\t71\t76\t36\n"
            "1871/01/07\tTO\t9\t61\t54\t15\t23\n"
            "1871/01/07\tVE\t2\t84\t52\t18\t67\n");
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
}  // namespace vestara::host
