#include "vestara/distances/distance_walk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "automation/yield.h"
#include "tests/support/events.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

using automation::Null;
using automation::Variant;
using testing_support::day;
using testing_support::error_of;
using testing_support::MemoryRecordSet;

using Lines = std::vector<std::string>;
using Row = std::vector<Variant>;
using Rows = std::vector<Row>;
const Variant null(Null{});

/// "wheel number: distances" of every list that has some; "wheel first-second: distances" for pairs. The one group
/// over all wheels is wheel 0.
class Written {
 public:
  Written(Recorded recorded, bool one_group)
      : recorded_(recorded),
        groups_(one_group ? 1 : wheel_count),
        lists_(groups_, recorded == Recorded::pairs ? pair_places : number_places) {}

  DistanceLists& lists() { return lists_; }
  Lines lines() {
    lines_.clear();
    for (size_t group = 0; group < groups_; ++group) {
      const std::string wheel = groups_ == 1 ? "0 " : std::to_string(group + 1) + " ";
      for (int32_t number = 1; number <= 90; ++number) {
        if (recorded_ == Recorded::numbers) add(wheel + std::to_string(number), group, number_place(number));
        for (int32_t second = std::max(number, 2); second <= 90 && number < 90 && recorded_ == Recorded::pairs;
             ++second)
          add(wheel + std::to_string(number) + "-" + std::to_string(second), group, pair_place(number, second));
      }
    }
    return lines_;
  }

 private:
  void add(const std::string& name, size_t group, size_t place) {
    const auto list = lists_.list(group, place);
    EXPECT_EQ(lists_.count(group, place), static_cast<int32_t>(list.size())) << name;
    if (list.empty()) return;
    lines_.push_back(name + ":");
    for (const int32_t distance : list) lines_.back() += " " + std::to_string(distance);
  }

  Recorded recorded_;
  size_t groups_;
  DistanceLists lists_;
  Lines lines_;
};

class WalkTest : public testing::Test {
 protected:
  /// What a walk over rows of wheel and numbers records, and its error.
  Lines wheels(const Rows& rows, Recorded recorded = Recorded::numbers) {
    MemoryRecordSet set({{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5"}, rows});
    Written written(recorded, false);
    error_ = error_of([&] { walk_wheels(set, recorded, written.lists()); });
    return written.lines();
  }
  /// The same over rows of date and numbers, one count for all.
  Lines dates(const Rows& rows, Recorded recorded = Recorded::numbers) {
    MemoryRecordSet set({{"dtEstr", "estr1", "estr2", "estr3", "estr4", "estr5"}, rows});
    Written written(recorded, true);
    error_ = error_of([&] { walk_dates(set, recorded, written.lists()); });
    return written.lines();
  }

  testing_support::CanonicalWheels canonical_;
  int32_t error_ = 0;
};

TEST_F(WalkTest, NumbersOfEachWheel) {
  const struct {
    const char* what;
    Rows rows;
    Lines lines;
  } rows[] = {{"no rows", {}, {}},
              {"the first draw is draw 0", {{"BA", 1, 2, 3, 4, 5}}, {"1 1: 0", "1 2: 0", "1 3: 0", "1 4: 0", "1 5: 0"}},
              {"neighbours are 1 apart; a first distance counts the draws before",
               {{"NA", 1, 2, 3, 4, 5}, {"NA", 5, 4, 3, 2, 1}, {"NA", 90, 5, 6, 7, 8}},
               {"6 1: 0 1", "6 2: 0 1", "6 3: 0 1", "6 4: 0 1", "6 5: 0 1 1", "6 6: 2", "6 7: 2", "6 8: 2", "6 90: 2"}},
              {"each wheel counts its own draws",
               {{"BA", 1, 2, 3, 4, 5},
                {"RN", 1, 2, 3, 4, 5},
                {"BA", 6, 7, 8, 9, 10},
                {"BA", 1, 2, 3, 4, 11},
                {"RN", 1, 2, 3, 4, 6}},
               {"1 1: 0 2", "1 2: 0 2", "1 3: 0 2", "1 4: 0 2", "1 5: 0", "1 6: 1", "1 7: 1", "1 8: 1", "1 9: 1",
                "1 10: 1", "1 11: 2", "11 1: 0 1", "11 2: 0 1", "11 3: 0 1", "11 4: 0 1", "11 5: 0", "11 6: 1"}},
              {"a row that repeats a number", {{"BA", 5, 5, 5, 6, 6}}, {"1 5: 0 0 0", "1 6: 0 0"}},
              {"wheels in any case, numbers of any type",
               {{"ba", "1", 2.0, int16_t{3}, 4.0F, "90"}, {"Ba", 1, 2, 3, 4, 5}},
               {"1 1: 0 1", "1 2: 0 1", "1 3: 0 1", "1 4: 0 1", "1 5: 1", "1 90: 0"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(wheels(row.rows), row.lines) << row.what;
    EXPECT_EQ(error_, 0) << row.what;
  }
}

TEST_F(WalkTest, PairsOfEachWheel) {
  const struct {
    const char* what;
    Rows rows;
    Lines lines;
  } rows[] = {{"ten pairs, the smaller number first",
               {{"CA", 90, 7, 45, 1, 30}},
               {"2 1-7: 0", "2 1-30: 0", "2 1-45: 0", "2 1-90: 0", "2 7-30: 0", "2 7-45: 0", "2 7-90: 0", "2 30-45: 0",
                "2 30-90: 0", "2 45-90: 0"}},
              {"three draws of one wheel, one of another",
               {{"BA", 1, 2, 3, 4, 5}, {"NA", 2, 1, 9, 9, 9}, {"BA", 1, 6, 7, 8, 9}, {"BA", 5, 4, 3, 2, 1}},
               {"1 1-2: 0 2", "1 1-3: 0 2", "1 1-4: 0 2", "1 1-5: 0 2",   "1 1-6: 1",     "1 1-7: 1",
                "1 1-8: 1",   "1 1-9: 1",   "1 2-3: 0 2", "1 2-4: 0 2",   "1 2-5: 0 2",   "1 3-4: 0 2",
                "1 3-5: 0 2", "1 4-5: 0 2", "1 6-7: 1",   "1 6-8: 1",     "1 6-9: 1",     "1 7-8: 1",
                "1 7-9: 1",   "1 8-9: 1",   "6 1-2: 0",   "6 1-9: 0 0 0", "6 2-9: 0 0 0", "6 9-9: 0 0 0"}},
              {"pairs of a number with itself",
               {{"BA", 89, 2, 89, 2, 89}},
               {"1 2-2: 0", "1 2-89: 0 0 0 0 0 0", "1 89-89: 0 0 0"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(wheels(row.rows, Recorded::pairs), row.lines) << row.what;
    EXPECT_EQ(error_, 0) << row.what;
  }
}

TEST_F(WalkTest, PairsAreTheSameInEveryOrderOfTheNumbers) {
  std::array<int32_t, 5> numbers{3, 17, 42, 60, 90};
  Rows rows;
  do rows.push_back({"BA", numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]});
  while (std::next_permutation(numbers.begin(), numbers.end()));
  std::string distances = ": 0";
  for (size_t draw = 1; draw < rows.size(); ++draw) distances += " 1";
  Lines expected;
  for (const char* pair : {"3-17", "3-42", "3-60", "3-90", "17-42", "17-60", "17-90", "42-60", "42-90", "60-90"})
    expected.push_back("1 " + std::string(pair) + distances);
  EXPECT_EQ(rows.size(), 120U);
  EXPECT_EQ(wheels(rows, Recorded::pairs), expected);
}

TEST_F(WalkTest, DatesCountOnceForAllWheels) {
  const auto first = day(2026, 1, 2), second = day(2026, 1, 6);
  const struct {
    const char* what;
    Rows rows;
    Lines lines;
  } rows[] = {
      {"no rows", {}, {}},
      {"the first date is 1", {{first, 1, 1, 1, 1, 90}}, {"0 1: 1 0 0 0", "0 90: 1"}},
      {"wheels of one date share the count",
       {{first, 1, 2, 3, 4, 5}, {first, 1, 6, 6, 6, 6}, {second, 7, 7, 7, 7, 1}, {second, 2, 2, 2, 2, 8}},
       {"0 1: 1 0 1", "0 2: 1 1 0 0 0", "0 3: 1", "0 4: 1", "0 5: 1", "0 6: 1 0 0 0", "0 7: 2 0 0 0", "0 8: 2"}},
      {"a date that comes back is a new one",
       {{second, 1, 1, 1, 1, 1}, {first, 2, 2, 2, 2, 2}, {second, 1, 1, 1, 1, 2}},
       {"0 1: 1 0 0 0 0 2 0 0 0", "0 2: 2 0 0 0 0 1"}},
      {"dates differ as texts do",
       {{"x", 1, 1, 1, 1, 1}, {"x", 2, 2, 2, 2, 2}, {"X", 3, 3, 3, 3, 3}},
       {"0 1: 1 0 0 0 0", "0 2: 1 0 0 0 0", "0 3: 2 0 0 0 0"}},
      {"a date and its text are one",
       {{first, 1, 1, 1, 1, 1}, {"02/01/2026", 2, 2, 2, 2, 2}, {second, 1, 1, 1, 1, 1}},
       {"0 1: 1 0 0 0 0 1 0 0 0 0", "0 2: 1 0 0 0 0"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(dates(row.rows), row.lines) << row.what;
    EXPECT_EQ(error_, 0) << row.what;
  }
}

TEST_F(WalkTest, PairsOverAllWheels) {
  const auto first = day(2026, 1, 2), second = day(2026, 1, 6);
  EXPECT_EQ(dates({{first, 9, 8, 7, 6, 5}, {first, 5, 6, 80, 80, 80}, {second, 6, 5, 80, 81, 82}}, Recorded::pairs),
            (Lines{"0 5-6: 1 0 1",    "0 5-7: 1",       "0 5-8: 1",   "0 5-9: 1",   "0 5-80: 1 0 0 1",
                   "0 5-81: 2",       "0 5-82: 2",      "0 6-7: 1",   "0 6-8: 1",   "0 6-9: 1",
                   "0 6-80: 1 0 0 1", "0 6-81: 2",      "0 6-82: 2",  "0 7-8: 1",   "0 7-9: 1",
                   "0 8-9: 1",        "0 80-80: 1 0 0", "0 80-81: 2", "0 80-82: 2", "0 81-82: 2"}));
}

TEST_F(WalkTest, ABadRowEndsTheWalkAndLeavesWhatWasRecorded) {
  const struct {
    const char* what;
    Row bad;
    int32_t error;
    Lines numbers, pairs;  // of the bad row
  } rows[] = {{"0 comes first among pairs", {"NA", 6, 0, 7, 8, 9}, 9, {"6 6: 0"}, {}},
              {"91 comes last", {"NA", 6, 91, 7, 8, 9}, 9, {"6 6: 0"}, {"6 6-7: 0", "6 6-8: 0", "6 6-9: 0"}},
              {"below 0", {"NA", 6, 7, 8, 9, -1}, 9, {"6 6: 0", "6 7: 0", "6 8: 0", "6 9: 0"}, {}},
              {"all zeros", {"NA", 0, 0, 0, 0, 0}, 9, {}, {}},
              {"Null", {"NA", null, 7, 8, 9, 10}, 94, {}, {}},
              {"an unknown wheel", {"XX", 6, 7, 8, 9, 10}, 5, {}, {}},
              {"no wheel", {"", 6, 7, 8, 9, 10}, 5, {}, {}},
              {"a wheel that is a number", {"6", 6, 7, 8, 9, 10}, 5, {}, {}},
              {"Null for a wheel", {null, 6, 7, 8, 9, 10}, 94, {}, {}},
              {"an unknown wheel goes before a bad number", {"XX", 0, 0, 0, 0, 0}, 5, {}, {}}};
  const Row good{"BA", 1, 2, 2, 2, 2};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    Lines expected{"1 1: 0", "1 2: 0 0 0 0"};
    expected.insert(expected.end(), row.numbers.begin(), row.numbers.end());
    EXPECT_EQ(wheels({good, row.bad, good}), expected);
    EXPECT_EQ(error_, row.error);
    expected = {"1 1-2: 0 0 0 0", "1 2-2: 0 0 0 0 0 0"};
    expected.insert(expected.end(), row.pairs.begin(), row.pairs.end());
    EXPECT_EQ(wheels({good, row.bad, good}, Recorded::pairs), expected);
    EXPECT_EQ(error_, row.error);
  }
}

TEST_F(WalkTest, PairsWithoutAPlace) {
  const struct {
    const char* what;
    Row row;
    Lines lines;
  } rows[] = {{"1 with itself", {"BA", 1, 1, 2, 3, 4}, {}},
              {"90 with itself, met last", {"BA", 90, 90, 89, 89, 89}, {"1 89-89: 0 0 0", "1 89-90: 0 0 0 0 0 0"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(wheels({row.row}, Recorded::pairs), row.lines) << row.what;
    EXPECT_EQ(error_, 9) << row.what;
    EXPECT_FALSE(wheels({row.row}).empty()) << "numbers do not mind";
    EXPECT_EQ(error_, 0) << row.what;
  }
}

TEST_F(WalkTest, BadNumbersOverAllWheels) {
  for (const int32_t bad : {0, 91, -5, 1000}) {
    const auto date = day(2026, 1, 2), later = day(2026, 1, 6);
    EXPECT_EQ(dates({{date, 5, 5, 5, 5, 6}, {later, 7, bad, 5, 5, 5}, {later, 5, 5, 5, 5, 5}}),
              (Lines{"0 5: 1 0 0 0", "0 6: 1", "0 7: 2"}));
    EXPECT_EQ(error_, 9) << bad;
  }
}

TEST_F(WalkTest, WithoutAColumn) {
  for (const auto recorded : {Recorded::numbers, Recorded::pairs}) {
    Written written(recorded, true);
    MemoryRecordSet no_date({{"estr1", "estr2", "estr3", "estr4", "estr5"}, {{1, 2, 3, 4, 5}}});
    EXPECT_EQ(error_of([&] { walk_dates(no_date, recorded, written.lists()); }), 3265);
    MemoryRecordSet no_fifth({{"ruota", "estr1", "estr2", "estr3", "estr4"}, {{"BA", 1, 2, 3, 4}}});
    EXPECT_EQ(error_of([&] { walk_wheels(no_fifth, recorded, written.lists()); }), 3265);
  }
}

TEST_F(WalkTest, YieldsBehindEachRow) {
  const auto date = day(2026, 1, 2);
  for (const auto recorded : {Recorded::numbers, Recorded::pairs}) {
    Lines calls;
    const testing_support::YieldWriter writer(calls);
    wheels({{"BA", 1, 2, 3, 4, 5}, {"NA", 1, 2, 3, 4, 5}, {"BA", 1, 2, 3, 4, 5}}, recorded);
    EXPECT_EQ(calls.size(), 3U);
    dates({{date, 1, 2, 3, 4, 5}, {date, 1, 2, 3, 4, 5}}, recorded);
    EXPECT_EQ(calls.size(), 5U);
    wheels({{"BA", 1, 2, 3, 4, 5}, {"NA", 1, 2, 3, 4, 0}}, recorded);
    EXPECT_EQ(calls.size(), 6U) << "not behind a row that failed";
    wheels({}, recorded);
    EXPECT_EQ(calls.size(), 6U);
  }
}

TEST_F(WalkTest, TablesAreAskedRowByRow) {
  testing_support::UnloadedWheels::reset();
  EXPECT_EQ(wheels({}), Lines{});
  EXPECT_EQ(error_, 0);
  EXPECT_EQ(wheels({{"BA", 1, 2, 3, 4, 5}}), Lines{});
  EXPECT_EQ(error_, 91);
  WheelTables tables;
  auto& by_alias = tables.RuoteEnumByAlias.emplace();
  by_alias.add("TU", 12);
  by_alias.add("AO", 3);
  replace_wheel_tables(std::move(tables));
  EXPECT_EQ(wheels({{"AO", 1, 1, 1, 1, 1}, {"TU", 2, 2, 2, 2, 2}}), Lines{"3 1: 0 0 0 0 0"});
  EXPECT_EQ(error_, 9) << "there is no wheel 12";
}

}  // namespace
}  // namespace vestara
