#include "vestara/study/wheel_draws.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

TEST(WheelDraws, CountsStrictlyBetween) {
  const WheelDraws draws({40, 10, 20, 20, 30});
  struct Row {
    std::optional<int32_t> after, before;
    int64_t count;
  };
  for (const Row& row : {Row{{}, {}, 5},
                         {10, 40, 3},
                         {10, 20, 0},
                         {20, 20, 0},
                         {20, 30, 0},
                         {15, 25, 2},
                         {{}, 20, 1},
                         {20, {}, 2},
                         {40, {}, 0},
                         {{}, 10, 0},
                         {50, {}, 0},
                         {0, 99, 5}})
    EXPECT_EQ(draws.between(row.after, row.before), row.count) << row.after.value_or(-1) << row.before.value_or(-1);
  EXPECT_EQ(draws.count(), 5);
}

}  // namespace
}  // namespace vestara
