#include "vestara/frequency/frequency_scan.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using automation::Variant;
using testing_support::error_of;
using testing_support::MemoryRecordSet;
using Rows = std::vector<std::vector<Variant>>;  // wheel, number, count
template <class Value>
using Entry = std::tuple<int32_t, int32_t, Value>;  // number, wheel, value
using Counts = std::vector<Entry<int32_t>>;
using Averages = std::vector<Entry<float>>;

class FrequencyScanTest : public testing::Test {
 protected:
  Ranking<int16_t> count(const Rows& rows) {
    counts_.fill(0);
    return scan_counts(*record_set(rows), counts_);
  }
  Ranking<float> average(const Rows& rows, int16_t draws) {
    averages_.fill(0);
    times_.fill(0);
    return scan_averages(*record_set(rows), draws, averages_, times_);
  }
  static testing_support::RowsRef record_set(const Rows& rows) {
    return make<MemoryRecordSet>(testing_support::Table{{"st.ruota", "st.estrazione", "num"}, rows});
  }

  testing_support::CanonicalWheels wheels_;
  WheelGrid<int16_t> counts_;
  WheelGrid<float> averages_;
  WheelGrid<int32_t> times_;
};

template <class Result, class Value>
Result first_entries(const Ranking<Value>& ranking, size_t count, const RankingEntry<Value>& filler) {
  Result result;
  for (int32_t i = ranking_first; i <= ranking_last; ++i) {
    const auto& [number, wheel, value] = ranking.at(i);
    if (result.size() < count)
      result.emplace_back(number, wheel, value);
    else
      EXPECT_EQ(std::tuple(number, wheel, value), std::tuple(filler.number, filler.wheel, filler.value)) << i;
  }
  return result;
}

TEST_F(FrequencyScanTest, OneEntryPerLevelOfCounts) {
  const struct {
    const char* what;
    Rows rows;
    Counts levels;
  } rows[] = {
      {"nothing", {}, {}},
      {"12, 12, 11, 10, 10",
       {{"BA", 1, 12}, {"CA", 2, 12}, {"FI", 3, 11}, {"GE", 4, 10}, {"RN", 90, 10}},
       {{1, 1, 12}, {3, 3, 11}, {4, 4, 10}}},
      {"one level", {{"RN", 90, 1}, {"BA", 1, 1}}, {{90, 11, 1}}},
      {"a level that comes back", {{"BA", 1, 2}, {"BA", 2, 1}, {"BA", 3, 2}}, {{1, 1, 2}, {2, 1, 1}, {3, 1, 2}}},
      {"count 0 is no level", {{"BA", 1, 0}}, {}},
      {"count 0 behind others", {{"BA", 1, 2}, {"BA", 2, 0}, {"BA", 3, 0}}, {{1, 1, 2}}},
      {"count 0 parts two equal levels", {{"BA", 1, 2}, {"BA", 2, 0}, {"BA", 3, 2}}, {{1, 1, 2}, {3, 1, 2}}},
      {"the largest count", {{"BA", 1, 32767}}, {{1, 1, 32767}}},
      {"texts", {{"ba", "7", "3"}}, {{7, 1, 3}}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(first_entries<Counts>(count(row.rows), row.levels.size(), {-1, -1, -1}), row.levels);
  }
}

TEST_F(FrequencyScanTest, EveryRowReachesTheGrid) {
  count({{"BA", 1, 12}, {"CA", 2, 12}, {"RN", 90, 11}, {"BA", 1, 3}});
  EXPECT_EQ(counts_.at(1, 1), 3);
  EXPECT_EQ(counts_.at(2, 2), 12);
  EXPECT_EQ(counts_.at(11, 90), 11);
  EXPECT_EQ(counts_.at(3, 3), 0);
}

TEST_F(FrequencyScanTest, NinetyLevelsAtMost) {
  Rows rows;
  for (int32_t i = 1; i <= 95; ++i) rows.push_back({i <= 90 ? "BA" : "CA", (i - 1) % 90 + 1, 200 - i});
  for (const int32_t levels : {89, 90, 91, 95}) {
    const auto ranking = count({rows.begin(), rows.begin() + levels});
    EXPECT_EQ(ranking.at(88).value, 111);
    EXPECT_EQ(ranking.at(89).value, levels < 90 ? -1 : 110) << levels;
  }
  EXPECT_EQ(counts_.at(2, 5), 105) << "the grid goes on";
}

TEST_F(FrequencyScanTest, CountsInAHundredDraws) {
  const struct {
    const char* what;
    int32_t count;
    int16_t draws;
    float average;
  } rows[] = {{"an average draw", 35, 500, 7.0F},         {"a third", 1, 3, 33.333332F},
              {"two thirds", 2, 3, 66.666664F},           {"every draw", 3, 3, 100.0F},
              {"more than one a draw", 5, 2, 250.0F},     {"none", 0, 7, 0.0F},
              {"the most draws", 1, 32767, 0.0030518509F}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const auto ranking = average({{"NA", 90, row.count}}, row.draws);
    EXPECT_EQ(averages_.at(6, 90), row.average);
    EXPECT_EQ(times_.at(6, 90), row.count);
    EXPECT_EQ(first_entries<Averages>(ranking, 1, {0, 0, 0}), (Averages{{90, 6, row.average}}));
  }
}

TEST_F(FrequencyScanTest, AveragesRankTheFirstNinetyRows) {
  EXPECT_EQ(first_entries<Averages>(average({}, 0), 0, {0, 0, 0}), Averages{});
  EXPECT_EQ(first_entries<Averages>(average({{"BA", 5, 2}, {"CA", 6, 2}, {"FI", 7, 1}}, 4), 3, {0, 0, 0}),
            (Averages{{5, 1, 50.0F}, {6, 2, 50.0F}, {7, 3, 25.0F}}));
  Rows rows;
  for (int32_t i = 0; i < 92; ++i) rows.push_back({i < 90 ? "TO" : "VE", i % 90 + 1, 1});
  const auto ranking = average(rows, 100);
  EXPECT_EQ(ranking.at(0).number, 1);
  EXPECT_EQ(ranking.at(89).number, 90);
  EXPECT_EQ(ranking.at(89).wheel, 9);
  EXPECT_EQ(ranking.at(89).value, 1.0F);
  EXPECT_EQ(averages_.at(10, 2), 1.0F);
}

TEST_F(FrequencyScanTest, NoDraws) {
  EXPECT_EQ(error_of([&] { average({{"BA", 5, 2}}, 0); }), 11);
  EXPECT_EQ(error_of([&] { average({{"BA", 5, 0}}, 0); }), 6);
  EXPECT_EQ(averages_.at(1, 5), 0.0F);
}

TEST_F(FrequencyScanTest, ErrorsLeaveWhatWasWritten) {
  const struct {
    const char* what;
    std::vector<Variant> row;
    int32_t error;
  } rows[] = {{"unknown wheel", {"XX", 1, 1}, 5},
              {"unknown wheel before a bad number", {"XX", 0, 1}, 5},
              {"unknown wheel before Nulls", {"XX", Null{}, Null{}}, 5},
              {"Null wheel", {Null{}, 1, 1}, 94},
              {"number 0", {"BA", 0, 1}, 9},
              {"number 91", {"BA", 91, 1}, 9},
              {"Null number", {"BA", Null{}, 1}, 94},
              {"Null count", {"BA", 1, Null{}}, 94}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const Rows table{{"CA", 2, 3}, row.row, {"CA", 4, 1}};
    EXPECT_EQ(error_of([&] { count(table); }), row.error);
    EXPECT_EQ(error_of([&] { average(table, 100); }), row.error);
    EXPECT_EQ(counts_.at(2, 2), 3);
    EXPECT_EQ(counts_.at(2, 4), 0);
    EXPECT_EQ(averages_.at(2, 2), 3.0F);
    EXPECT_EQ(averages_.at(2, 4), 0.0F);
  }
  EXPECT_EQ(error_of([&] { count({{"BA", 1, 5}, {"BA", 2, 32768}}); }), 6) << "a count beyond 16 bits";
  EXPECT_EQ(counts_.at(1, 1), 5);
  EXPECT_EQ(counts_.at(1, 2), 0);
}

}  // namespace
}  // namespace vestara
