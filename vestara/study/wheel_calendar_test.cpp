#include "vestara/study/wheel_calendar.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

TEST(WheelCalendar, CountsEachWheelByItself) {
  WheelCalendar::Days days;
  days[0] = {30, 10, 20, 20};
  days[10] = {20, 40};
  const WheelCalendar calendar(days);
  struct Row {
    int16_t wheel;
    int32_t day;
    int64_t after, draws;
  };
  for (const Row& row :
       {Row{1, 0, 4, 4}, {1, 10, 3, 4}, {1, 15, 3, 4}, {1, 20, 1, 4}, {1, 30, 0, 4}, {11, 20, 1, 2}, {5, 0, 0, 0}}) {
    EXPECT_EQ(calendar.draws_after(row.wheel, row.day), row.after) << row.wheel << " " << row.day;
    EXPECT_EQ(calendar.draws(row.wheel), row.draws) << row.wheel;
  }
  EXPECT_EQ(calendar.dates(), 4);
}

}  // namespace
}  // namespace vestara
