#include "vestara/draws/calendar.h"

#include <gtest/gtest.h>

#include "automation/date.h"

namespace vestara {
namespace {

using automation::day_from_civil;

TEST(Calendar, HasTheDrawsOfKnownYears) {
  struct Row {
    int32_t year;
    int32_t draws;
  };
  for (const Row& row : {Row{1870, 0},
                         {1871, 52},
                         {1939, 52},
                         {1996, 52},
                         {1997, 95},
                         {1998, 104},
                         {2004, 104},
                         {2005, 133},
                         {2006, 156},
                         {2022, 157},
                         {2023, 182},
                         {2024, 209},
                         {2025, 208}}) {
    int32_t draws = 0;
    for (int32_t day = day_from_civil(row.year, 1, 1); day < day_from_civil(row.year + 1, 1, 1); ++day)
      draws += is_draw_day(day) ? 1 : 0;
    EXPECT_EQ(draws, row.draws) << row.year;
  }
}

TEST(Calendar, ChangesOnTheRightDay) {
  struct Row {
    int32_t year, month, day;
    bool is_draw;
  };
  for (const Row& row : {Row{1870, 12, 31, false},
                         {1871, 1, 7, true},
                         {1871, 1, 8, false},
                         {1871, 1, 14, true},
                         {1997, 3, 5, false},
                         {1997, 3, 8, true},
                         {1997, 3, 12, true},
                         {1997, 3, 15, true},
                         {2005, 6, 15, true},
                         {2005, 6, 16, false},
                         {2005, 6, 18, true},
                         {2005, 6, 21, true},
                         {2005, 6, 22, false},
                         {2005, 6, 23, true},
                         {2023, 6, 30, false},
                         {2023, 7, 7, true}})
    EXPECT_EQ(is_draw_day(day_from_civil(row.year, row.month, row.day)), row.is_draw)
        << row.year << "-" << row.month << "-" << row.day;
  EXPECT_EQ(first_draw_day(), day_from_civil(1871, 1, 7));
}

TEST(Calendar, WheelsBeginWhenTheyBegan) {
  struct Row {
    int32_t wheel, year, month, day;
  };
  for (const Row& row :
       {Row{1, 1874, 5, 2}, {2, 1939, 7, 8}, {3, 1871, 1, 7}, {4, 1939, 7, 8}, {10, 1871, 1, 7}, {11, 2005, 5, 4}}) {
    const int32_t first = day_from_civil(row.year, row.month, row.day);
    EXPECT_TRUE(is_drawn_on(row.wheel, first)) << row.wheel;
    EXPECT_FALSE(is_drawn_on(row.wheel, first - 1)) << row.wheel;
  }
}

}  // namespace
}  // namespace vestara
