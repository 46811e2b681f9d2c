#include "vestara/study/chance/exact_count.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

TEST(ExactCount, IsRightToTheLastDigit) {
  struct Row {
    int32_t items, chosen;
    const char* ways;
  };
  for (const Row& row : {Row{5, 2, "10"},
                         {5, 5, "1"},
                         {5, 0, "1"},
                         {3, 5, "0"},
                         {90, 1, "90"},
                         {90, 5, "43949268"},
                         {90, 18, "3789648142708598775"},
                         {90, 19, "14360771909211532200"},
                         {90, 89, "90"},
                         {90, 90, "1"},
                         {90, 45, "103827421287553411369671120"}})
    EXPECT_EQ(digits_of(ways_to_choose(row.items, row.chosen)), row.ways) << row.items << " " << row.chosen;
}

TEST(ExactCount, FollowsFromTheTwoBelowIt) {
  for (int32_t items = 1; items <= 90; ++items)
    for (int32_t chosen = 1; chosen <= items; ++chosen)
      ASSERT_TRUE(ways_to_choose(items, chosen) ==
                  ways_to_choose(items - 1, chosen - 1) + ways_to_choose(items - 1, chosen))
          << items << " " << chosen;
}

}  // namespace
}  // namespace vestara
