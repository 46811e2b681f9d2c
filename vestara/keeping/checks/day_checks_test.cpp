#include "vestara/keeping/checks/day_checks.h"

#include <gtest/gtest.h>

#include "automation/date.h"

namespace vestara {
namespace {

using automation::day_from_civil;

constexpr int32_t all_wheels = 11;

DrawDay drawn(int32_t year, int32_t month, int32_t day, int32_t contest) {
  return {day_from_civil(year, month, day), all_wheels, "BA", contest, contest};
}
DrawDay alone(int32_t year, int32_t month, int32_t day, const char* wheel, int32_t contest) {
  return {day_from_civil(year, month, day), 1, wheel, contest, contest};
}

TEST(DayChecks, FindWhatIsWrong) {
  struct Row {
    const char* why;
    std::vector<DrawDay> days;
    std::vector<DayFinding> found;
  };
  using enum DayFault;
  const int32_t today = day_from_civil(2006, 6, 1);
  for (const Row& row :
       {Row{"no day", {}, {}},
        {"in order", {drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 2), drawn(2006, 1, 4, 1)}, {}},
        {"today", {drawn(2006, 6, 1, 45)}, {}},
        {"tomorrow", {drawn(2006, 6, 2, 45)}, {{in_the_future, 1, drawn(2006, 6, 2, 45)}}},
        {"one wheel", {drawn(2005, 1, 1, 1), alone(2005, 1, 5, "VE", 2)}, {{one_wheel, 1, alone(2005, 1, 5, "VE", 2)}}},
        {"an archive of one wheel", {alone(2005, 1, 1, "VE", 1), alone(2005, 1, 5, "VE", 2)}, {}},
        {"two wheels never together",
         {alone(2005, 1, 1, "VE", 1), alone(2005, 1, 5, "BA", 2)},
         {{one_wheel, 2, alone(2005, 1, 1, "VE", 1)}}},
        {"a known stray date", {drawn(1948, 4, 30, 18), alone(1948, 5, 1, "NA", 19)}, {}},
        {"another wheel on it",
         {drawn(1948, 4, 30, 18), alone(1948, 5, 1, "BA", 19)},
         {{one_wheel, 1, alone(1948, 5, 1, "BA", 19)}}},
        {"two contests",
         {{day_from_civil(2005, 1, 1), 2, "BA", 1, 2}},
         {{two_contests, 1, {day_from_civil(2005, 1, 1), 2, "BA", 1, 2}}}},
        {"a number twice", {drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 1)}, {{out_of_order, 1, drawn(2005, 1, 5, 1), 1}}},
        {"a number behind",
         {drawn(2005, 1, 1, 3), drawn(2005, 1, 5, 2), drawn(2005, 1, 8, 4)},
         {{out_of_order, 1, drawn(2005, 1, 5, 2), 3}}},
        {"no number is no order", {drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 0), drawn(2005, 1, 8, 3)}, {}},
        {"the first year begins anywhere", {drawn(2004, 12, 29, 104), drawn(2005, 1, 1, 1)}, {}},
        {"but has no more days than a year",
         {drawn(2004, 12, 29, 367)},
         {{beyond_year, 1, drawn(2004, 12, 29, 367), 366}}},
        {"a later year",
         {drawn(2004, 12, 29, 104), drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 3)},
         {{beyond_year, 1, drawn(2005, 1, 5, 3), 2}}}}) {
    const auto found = check_days(row.days, today);
    ASSERT_EQ(found.size(), row.found.size()) << row.why;
    for (size_t i = 0; i < found.size(); ++i) {
      EXPECT_EQ(found[i].fault, row.found[i].fault) << row.why;
      EXPECT_EQ(found[i].count, row.found[i].count) << row.why;
      EXPECT_EQ(found[i].first.day, row.found[i].first.day) << row.why;
      EXPECT_EQ(found[i].first.wheel, row.found[i].first.wheel) << row.why;
      EXPECT_EQ(found[i].first.most_contest, row.found[i].first.most_contest) << row.why;
      EXPECT_EQ(found[i].limit, row.found[i].limit) << row.why;
    }
  }
}

TEST(DayChecks, CountKnownStrayDays) {
  EXPECT_EQ(known_stray_days({drawn(1948, 4, 30, 18), alone(1948, 5, 1, "NA", 19), alone(1969, 12, 28, "TO", 3),
                              alone(1969, 12, 29, "TO", 4), alone(1962, 6, 2, "BA", 1)}),
            2);
}

}  // namespace
}  // namespace vestara
