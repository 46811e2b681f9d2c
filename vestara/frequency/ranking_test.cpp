#include "vestara/frequency/ranking.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using testing_support::error_of;
using Numbers = std::vector<int32_t>;

Numbers numbers_of(const Ranking<int16_t>& ranking) {
  Numbers numbers;
  for (int32_t i = ranking_first; i <= ranking_last; ++i) numbers.push_back(ranking.at(i).number);
  return numbers;
}

TEST(Ranking, HasNoEntriesUntilItIsBuilt) {
  Ranking<int16_t> ranking;
  EXPECT_FALSE(ranking.is_built());
  EXPECT_EQ(error_of([&] { ranking.at(0); }), 9);
  ranking = Ranking<int16_t>::zeros();
  EXPECT_TRUE(ranking.is_built());
  EXPECT_EQ(numbers_of(ranking), Numbers(90, 0));
  for (const int32_t index : {-1, 90, -32768, 32767}) EXPECT_EQ(error_of([&] { ranking.at(index); }), 9) << index;
}

TEST(Ranking, NewEntriesPushTheLastOneOut) {
  auto ranking = Ranking<int16_t>::zeros();
  for (int16_t i = 1; i <= 92; ++i) ranking.push_front({i, 2, 3});
  EXPECT_EQ(ranking.at(0).number, 92);
  EXPECT_EQ(ranking.at(89).number, 3);
  EXPECT_EQ(ranking.at(89).wheel, 2);
  EXPECT_EQ(ranking.at(89).value, 3);
}

TEST(Ranking, UnusedEntriesAreMarked) {
  for (const int32_t from : {0, 1, 89, 90}) {
    auto ranking = Ranking<int16_t>::zeros();
    ranking.mark_unused_from(from);
    Numbers expected(90, -1);
    std::fill_n(expected.begin(), from, 0);
    EXPECT_EQ(numbers_of(ranking), expected) << from;
    if (from < 90) {
      EXPECT_EQ(ranking.at(89).wheel, -1);
      EXPECT_EQ(ranking.at(89).value, -1);
    }
  }
}

}  // namespace
}  // namespace vestara
