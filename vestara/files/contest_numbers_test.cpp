#include "vestara/files/contest_numbers.h"

#include <gtest/gtest.h>

#include "automation/date.h"

namespace vestara {
namespace {

TEST(ContestNumbers, AreThePlaceOfTheDateInItsYear) {
  const auto day = [](int32_t year, int32_t month, int32_t date) {
    return automation::day_from_civil(year, month, date);
  };
  std::vector<DrawRow> rows;
  for (const auto& [date, contest] : {std::pair{day(2004, 12, 29), 0},
                                      {day(2005, 1, 1), 0},
                                      {day(2005, 1, 5), 77},
                                      {day(2005, 1, 8), 0},
                                      {day(2006, 1, 4), 0}})
    for (const int8_t wheel : {int8_t{1}, int8_t{2}}) rows.push_back({date, static_cast<int16_t>(contest), wheel, {}});
  const auto numbered = [&](const std::vector<int32_t>& more) {
    auto copy = rows;
    number_contests(copy, united(days_of(rows), more));
    std::string text;
    for (const DrawRow& row : copy) text += std::to_string(row.contest) + " ";
    return text;
  };
  EXPECT_EQ(numbered({}), "1 1 1 1 77 77 3 3 1 1 ");
  EXPECT_EQ(numbered({day(2004, 1, 3), day(2005, 1, 2), day(2005, 1, 8), day(2006, 12, 30)}), "2 2 1 1 77 77 4 4 1 1 ");
}

}  // namespace
}  // namespace vestara
