#include "vestara/draws/draw_range.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

const WheelSelection all;
const WheelSelection venice{false, "VE"};
const WheelSelection two{false, "VE,BA"};
constexpr int32_t day = 38391;  // 2005-02-08

std::string joined(const std::vector<WheelSelection>& loads) {
  std::string text;
  for (const WheelSelection& load : loads) text += (load.all ? "all" : load.codes) + "|";
  return text;
}

TEST(DrawRange, Conditions) {
  struct Row {
    DrawRange range;
    const char* condition;
  };
  for (const Row& row :
       {Row{{all, {}, {}}, ""},
        {{all, day, {}}, " WHERE dtEstr>='2005-02-08'"},
        {{venice, {}, day}, " WHERE dtEstr<='2005-02-08' AND ruota IN('VE')"},
        {{two, day, day}, " WHERE dtEstr>='2005-02-08' AND dtEstr<='2005-02-08' AND ruota IN('VE','BA')"}})
    EXPECT_EQ(range_condition(row.range), row.condition);
}

TEST(DrawRange, AsksWheelByWheelWhereDatesWouldBindToTheFirstOnly) {
  struct Row {
    DrawRange range;
    const char* loads;
  };
  for (const Row& row : {Row{{all, {}, {}}, "all|"},
                         {{all, day, day}, "all|"},
                         {{venice, day, day}, "VE|"},
                         {{two, {}, {}}, "VE,BA|"},
                         {{two, day, {}}, "BA|VE|"},
                         {{two, {}, day}, "BA|VE|"}}) {
    EXPECT_EQ(joined(wheel_loads(row.range)), row.loads);
    EXPECT_EQ(note_on_loads(row.range).empty(), wheel_loads(row.range).size() == 1) << row.loads;
  }
}

TEST(DrawRange, WheelsInOrder) {
  EXPECT_EQ(chosen_wheels(all), (std::vector<int16_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
  EXPECT_EQ(chosen_wheels(two), (std::vector<int16_t>{1, 10}));
}

}  // namespace
}  // namespace vestara
