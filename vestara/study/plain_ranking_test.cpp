#include "vestara/study/plain_ranking.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

TEST(PlainRanking, SortsEveryNumberOfTheWheels) {
  WheelGrid<int32_t> grid;
  grid.fill(-1);
  grid.at(1, 5) = 7;
  grid.at(3, 4) = 7;
  grid.at(3, 90) = 9;
  grid.at(2, 1) = 100;
  const auto ranking = plain_ranking(grid, {1, 3});
  ASSERT_EQ(ranking.size(), 180U);
  struct Row {
    size_t rank;
    int16_t number, wheel;
    int32_t value;
  };
  for (const Row& row : {Row{0, 90, 3, 9}, {1, 5, 1, 7}, {2, 4, 3, 7}, {3, 1, 1, -1}, {179, 89, 3, -1}}) {
    EXPECT_EQ(ranking[row.rank].number, row.number) << row.rank;
    EXPECT_EQ(ranking[row.rank].wheel, row.wheel) << row.rank;
    EXPECT_EQ(ranking[row.rank].value, row.value) << row.rank;
  }
}

}  // namespace
}  // namespace vestara
