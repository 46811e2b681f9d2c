#include "vestara/distances/distance_lists.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <set>

#include "tests/support/values.h"

namespace vestara {
namespace {

using testing_support::error_of;
using List = std::vector<int32_t>;

constexpr int32_t least = std::numeric_limits<int32_t>::min();
constexpr int32_t most = std::numeric_limits<int32_t>::max();

TEST(DistancePlaces, EveryNumberPairAndWheelHasItsOwn) {
  std::set<size_t> places, groups, pairs;
  for (int32_t number = 1; number <= 90; ++number) places.insert(number_place(number));
  for (int32_t wheel = 1; wheel <= 11; ++wheel) groups.insert(wheel_group(wheel));
  size_t pairs_met = 0;
  for (int32_t first = 1; first <= 89; ++first)
    for (int32_t second = std::max(first, 2); second <= 90; ++second, ++pairs_met)
      pairs.insert(pair_place(first, second));
  EXPECT_EQ(places.size(), 90U);
  EXPECT_LT(*places.rbegin(), number_places);
  EXPECT_EQ(groups.size(), 11U);
  EXPECT_LT(*groups.rbegin(), 11U);
  EXPECT_EQ(pairs.size(), pairs_met);
  EXPECT_LT(*pairs.rbegin(), pair_places);
}

TEST(DistancePlaces, TheLargerNumberFirstHasNone) {
  for (int32_t first = 3; first <= 89; ++first)
    for (int32_t second = 2; second < first; ++second) EXPECT_EQ(pair_place(first, second), no_place);
}

TEST(DistancePlaces, OutsideIsError9) {
  for (const int32_t number : {0, -1, 91, 181, least, most}) {
    EXPECT_EQ(error_of([&] { number_place(number); }), 9) << number;
    EXPECT_EQ(error_of([&] { pair_place(number, 5); }), 9) << number;
    EXPECT_EQ(error_of([&] { pair_place(5, number); }), 9) << number;
  }
  for (const int32_t wheel : {0, -1, 12, least, most}) EXPECT_EQ(error_of([&] { wheel_group(wheel); }), 9) << wheel;
  const std::pair<int32_t, int32_t> pairs[] = {{1, 1}, {90, 90}, {90, 2}, {2, 1}, {0, 0}, {91, 91}, {90, 91}, {0, 91}};
  for (const auto& [first, second] : pairs)
    EXPECT_EQ(error_of([&, a = first, b = second] { pair_place(a, b); }), 9) << first << " " << second;
}

void appear(DistanceLists& lists, size_t group, size_t place, int32_t draw) {
  lists.begin_draw(group, draw);
  lists.record(place);
}

/// Everything, once while the load runs and once when it has ended.
void both_times(DistanceLists& lists, const std::function<void()>& check) {
  check();
  lists.end_load();
  check();
}

TEST(DistanceLists, StartEmpty) {
  DistanceLists lists(2, 3);
  both_times(lists, [&] {
    for (size_t group = 0; group < 2; ++group)
      for (size_t place = 0; place < 3; ++place) {
        EXPECT_EQ(lists.count(group, place), 0);
        EXPECT_EQ(lists.list(group, place), List{});
      }
  });
}

TEST(DistanceLists, KeepTheDistancesOfEachListInOrder) {
  DistanceLists lists(2, 3);
  const struct {
    size_t group, place;
    int32_t draw;
  } appearances[] = {{0, 0, 0}, {1, 2, 1}, {0, 0, 1}, {0, 2, 7}, {1, 0, 8}, {1, 2, 8}, {0, 0, 8}, {0, 0, 8}};
  for (const auto& [group, place, draw] : appearances) appear(lists, group, place, draw);
  const struct {
    size_t group, place;
    List list;
  } rows[] = {{0, 0, {0, 1, 7, 0}}, {0, 1, {}}, {0, 2, {7}}, {1, 0, {8}}, {1, 1, {}}, {1, 2, {1, 7}}};
  both_times(lists, [&] {
    for (const auto& row : rows) {
      EXPECT_EQ(lists.list(row.group, row.place), row.list) << row.group << " " << row.place;
      EXPECT_EQ(lists.count(row.group, row.place), static_cast<int32_t>(row.list.size()));
    }
  });
}

TEST(DistanceLists, ADrawHoldsManyAppearancesOrNone) {
  DistanceLists lists(2, 3);
  lists.begin_draw(0, 4);
  lists.begin_draw(1, 6);
  for (const size_t place : {2U, 0U, 2U, 2U}) lists.record(place);
  lists.begin_draw(1, 9);
  lists.record(2);
  lists.begin_draw(0, 11);
  both_times(lists, [&] {
    EXPECT_EQ(lists.list(1, 2), (List{6, 0, 0, 3}));
    EXPECT_EQ(lists.list(1, 0), List{6});
    for (size_t place = 0; place < 3; ++place) EXPECT_EQ(lists.count(0, place), 0);
  });
}

TEST(DistanceLists, CanBeReadWhileALoadRuns) {
  DistanceLists lists(1, 1);
  List expected;
  for (int32_t draw = 0; draw < 20; draw += 2) {
    lists.begin_draw(0, draw);
    EXPECT_EQ(lists.list(0, 0), expected) << "a draw that has only begun";
    lists.record(0);
    expected.push_back(draw == 0 ? 0 : 2);
    EXPECT_EQ(lists.list(0, 0), expected);
    EXPECT_EQ(lists.count(0, 0), draw / 2 + 1);
  }
}

TEST(DistanceLists, ClearForgetsEverything) {
  for (const bool ended : {false, true}) {
    DistanceLists lists(1, 2);
    appear(lists, 0, 1, 5);
    if (ended) lists.end_load();
    lists.clear();
    EXPECT_EQ(lists.list(0, 1), List{});
    EXPECT_EQ(lists.count(0, 1), 0);
    appear(lists, 0, 1, 3);
    appear(lists, 0, 0, 4);
    both_times(lists, [&] {
      EXPECT_EQ(lists.list(0, 1), List{3}) << "counts from draw 0 again";
      EXPECT_EQ(lists.list(0, 0), List{4});
    });
  }
}

TEST(DistanceLists, HoldThePairsOfAllWheels) {
  DistanceLists lists(11, pair_places);
  const auto place = [](int32_t wheel) { return pair_place(wheel, 90); };
  for (int32_t draw = 0; draw < 300; ++draw)
    for (int32_t wheel = 1; wheel <= 11; ++wheel)
      if (draw % wheel == 0) appear(lists, wheel_group(wheel), place(wheel), draw);
  appear(lists, wheel_group(11), pair_place(89, 90), most);
  both_times(lists, [&] {
    for (int32_t wheel = 1; wheel <= 11; ++wheel) {
      List expected(static_cast<size_t>((300 + wheel - 1) / wheel), wheel);
      expected[0] = 0;
      EXPECT_EQ(lists.list(wheel_group(wheel), place(wheel)), expected) << wheel;
      EXPECT_EQ(lists.count(wheel_group(wheel), place(wheel % 11 + 1)), 0) << wheel;
    }
    EXPECT_EQ(lists.list(wheel_group(11), pair_place(89, 90)), List{most});
  });
}

}  // namespace
}  // namespace vestara
