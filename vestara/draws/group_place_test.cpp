#include "vestara/draws/group_place.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "vestara/draws/number_mask.h"

namespace vestara {
namespace {

TEST(GroupPlace, CountsEveryGroupOnce) {
  const struct {
    DrawnNumbers numbers;
    size_t size;
    uint32_t place;
  } rows[] = {{{1}, 1, 0},
              {{90}, 1, 89},
              {{1, 2}, 2, 0},
              {{1, 3}, 2, 1},
              {{1, 90}, 2, 88},
              {{2, 3}, 2, 89},
              {{89, 90}, 2, 4004},
              {{1, 2, 3}, 3, 0},
              {{88, 89, 90}, 3, 117479},
              {{1, 2, 3, 4}, 4, 0},
              {{87, 88, 89, 90}, 4, 2555189},
              {{1, 2, 3, 4, 5}, 5, 0},
              {{86, 87, 88, 89, 90}, 5, 43949267}};
  for (const auto& row : rows) {
    EXPECT_EQ(group_place(row.numbers, row.size), row.place);
    EXPECT_EQ(group_at(row.place, row.size), row.numbers) << row.place;
  }
  for (size_t size = 1; size <= 5; ++size) {
    const uint32_t all = choices(90, size);
    for (uint32_t place = 0; place < all; place += size <= 3 ? 1 : 9973) {
      const DrawnNumbers group = group_at(place, size);
      ASSERT_TRUE(std::is_sorted(group.begin(), group.begin() + static_cast<ptrdiff_t>(size))) << place;
      ASSERT_EQ(group_place(group, size), place) << size;
    }
  }
}

TEST(GroupPlace, OrderIsThatOfTheNumbers) {
  for (size_t size = 1; size <= 5; ++size)
    for (uint32_t place = 1; place < choices(90, size); place += size <= 3 ? 1 : 9973)
      ASSERT_LT(group_at(place - 1, size), group_at(place, size)) << place;
}

TEST(GroupPlace, NumbersAreSortedInEveryOrder) {
  DrawnNumbers numbers{7, 19, 33, 64, 90};
  const DrawnNumbers sorted = numbers;
  do EXPECT_EQ(ascending(numbers), sorted);
  while (std::next_permutation(numbers.begin(), numbers.end()));
}

TEST(NumberMask, HoldsOneToNinety) {
  NumberMask all;
  for (int32_t number = 1; number <= 90; ++number) {
    EXPECT_FALSE(all.contains(number)) << number;
    all.add(number);
    EXPECT_TRUE(all.contains(number)) << number;
    EXPECT_EQ(all.count(), number);
  }
  NumberMask some;
  for (const int32_t number : {1, 64, 65, 90}) some.add(number);
  EXPECT_EQ(all & some, some);
  NumberMask other;
  other.add(65);
  other.add(2);
  EXPECT_EQ((some & other).count(), 1);
}

}  // namespace
}  // namespace vestara
