#include "hosts/cli/checks/day_checks.h"

#include <gtest/gtest.h>

#include "automation/date.h"

namespace vestara::host {
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
    const char* found;  ///< what, count and example, or nothing
  };
  const int32_t today = day_from_civil(2006, 6, 1);
  for (const Row& row :
       {Row{"no day", {}, ""},
        {"in order", {drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 2), drawn(2006, 1, 4, 1)}, ""},
        {"today", {drawn(2006, 6, 1, 45)}, ""},
        {"tomorrow", {drawn(2006, 6, 2, 45)}, "dates in the future,1,2006-06-02"},
        {"one wheel",
         {drawn(2005, 1, 1, 1), alone(2005, 1, 5, "VE", 2)},
         "dates with one wheel only,1,2005-01-05, wheel VE"},
        {"an archive of one wheel", {alone(2005, 1, 1, "VE", 1), alone(2005, 1, 5, "VE", 2)}, ""},
        {"two wheels never together",
         {alone(2005, 1, 1, "VE", 1), alone(2005, 1, 5, "BA", 2)},
         "dates with one wheel only,2,2005-01-01, wheel VE"},
        {"a known stray date", {drawn(1948, 4, 30, 18), alone(1948, 5, 1, "NA", 19)}, ""},
        {"another wheel on it",
         {drawn(1948, 4, 30, 18), alone(1948, 5, 1, "BA", 19)},
         "dates with one wheel only,1,1948-05-01, wheel BA"},
        {"two contests",
         {{day_from_civil(2005, 1, 1), 2, "BA", 1, 2}},
         "dates with two contests,1,2005-01-01, contests 1 and 2"},
        {"a number twice",
         {drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 1)},
         "contest numbers out of order,1,2005-01-05, contest 1 behind contest 1"},
        {"a number behind",
         {drawn(2005, 1, 1, 3), drawn(2005, 1, 5, 2), drawn(2005, 1, 8, 4)},
         "contest numbers out of order,1,2005-01-05, contest 2 behind contest 3"},
        {"no number is no order", {drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 0), drawn(2005, 1, 8, 3)}, ""},
        {"the first year begins anywhere", {drawn(2004, 12, 29, 104), drawn(2005, 1, 1, 1)}, ""},
        {"but has no more days than a year",
         {drawn(2004, 12, 29, 367)},
         "contest numbers beyond the dates of their year,1,2004-12-29, contest 367 of 366"},
        {"a later year",
         {drawn(2004, 12, 29, 104), drawn(2005, 1, 1, 1), drawn(2005, 1, 5, 3)},
         "contest numbers beyond the dates of their year,1,2005-01-05, contest 3 of 2"}}) {
    const Findings found = day_findings(row.days, today);
    std::string text;
    for (const Finding& finding : found) {
      text += finding.what + "," + std::to_string(finding.count) + "," + finding.example;
      EXPECT_NE(finding.remedy, "") << row.why;
    }
    EXPECT_EQ(text, row.found) << row.why;
  }
}

TEST(DayChecks, CountKnownStrayDays) {
  EXPECT_EQ(known_stray_days({drawn(1948, 4, 30, 18), alone(1948, 5, 1, "NA", 19), alone(1969, 12, 28, "TO", 3),
                              alone(1969, 12, 29, "TO", 4), alone(1962, 6, 2, "BA", 1)}),
            2);
}

}  // namespace
}  // namespace vestara::host
