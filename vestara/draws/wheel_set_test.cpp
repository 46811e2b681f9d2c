#include "vestara/draws/wheel_set.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

TEST(WheelSet, CodesInAnyCase) {
  const struct {
    const char* code;
    int32_t wheel;
  } rows[] = {{"BA", 1}, {" ve ", 10}, {"Rn", 11}, {"na", 6}, {"", 0}, {"X", 0}, {"BAR", 0}, {"Roma", 0}, {"NZ", 0}};
  for (const auto& row : rows) EXPECT_EQ(wheel_of_code(row.code), row.wheel) << row.code;
}

TEST(WheelSet, IsNamedAsOne) {
  const struct {
    std::vector<int32_t> wheels;
    const char* name;
  } rows[] = {{{10}, "VE"},
              {{11, 6, 1}, "BA+NA+RN"},
              {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, "tutte"},
              {{1, 2, 3, 4, 5, 6, 7, 8, 9, 11}, "BA+CA+FI+GE+MI+NA+PA+RM+TO+RN"},
              {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, "all"},
              {{}, ""}};
  for (const auto& row : rows) {
    WheelSet wheels;
    for (const int32_t wheel : row.wheels) wheels.add(wheel);
    EXPECT_EQ(wheels.name(), row.name);
    EXPECT_EQ(wheels.count(), static_cast<int32_t>(row.wheels.size()));
  }
  EXPECT_EQ(WheelSet::cities().count(), 10);
  EXPECT_FALSE(WheelSet::cities().contains(11));
  EXPECT_EQ(WheelSet::all().wheels().back(), 11);
}

}  // namespace
}  // namespace vestara
