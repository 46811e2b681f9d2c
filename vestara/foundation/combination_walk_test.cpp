#include "vestara/foundation/combination_walk.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vestara {
namespace {

using Places = std::vector<int32_t>;

TEST(CombinationWalk, GoesThroughThePlacesInOrder) {
  for (int32_t items = 1; items <= 9; ++items) {
    for (int32_t chosen = 1; chosen <= items; ++chosen) {
      SCOPED_TRACE(std::to_string(chosen) + " of " + std::to_string(items));
      // A mask of ones before zeros, permuted downwards, lists the same sets in the same order.
      std::vector<int> mask(static_cast<size_t>(items), 0);
      std::fill_n(mask.begin(), chosen, 1);
      CombinationWalk walk(items, chosen);
      bool more = true;
      do {
        ASSERT_TRUE(more);
        Places expected;
        for (int32_t place = 1; place <= items; ++place)
          if (mask[static_cast<size_t>(place - 1)] != 0) expected.push_back(place);
        ASSERT_EQ(Places(walk.places().begin(), walk.places().end()), expected);
        more = walk.advance();
        if (more) {
          const auto changed = std::ranges::mismatch(expected, walk.places()).in1 - expected.begin();
          EXPECT_EQ(walk.changed_from(), static_cast<size_t>(changed));
        }
      } while (std::ranges::prev_permutation(mask).found);
      EXPECT_FALSE(more);
      EXPECT_FALSE(walk.advance()) << "the last one stays";
      EXPECT_EQ(walk.places().back(), items);
    }
  }
}

TEST(CombinationWalk, CountsOfLargerSets) {
  const struct {
    int32_t items, chosen, count;
  } rows[] = {{32, 2, 496}, {33, 2, 528}, {90, 1, 90}, {90, 89, 90}, {90, 90, 1}, {20, 10, 184756}, {32767, 1, 32767}};
  for (const auto& row : rows) {
    CombinationWalk walk(row.items, row.chosen);
    int32_t count = 1;
    while (walk.advance()) ++count;
    EXPECT_EQ(count, row.count) << row.chosen << " of " << row.items;
    EXPECT_EQ(walk.places().front(), row.items - row.chosen + 1);
  }
}

}  // namespace
}  // namespace vestara
