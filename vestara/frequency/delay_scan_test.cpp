#include "vestara/frequency/delay_scan.h"

#include <gtest/gtest.h>

#include "automation/yield.h"
#include "tests/support/failing_recordset.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using automation::Variant;
using testing_support::error_of;
using testing_support::MemoryRecordSet;
using testing_support::Table;
using Rows = std::vector<std::vector<Variant>>;
using Entry = std::array<int32_t, 3>;  // number, wheel, delay
using Entries = std::vector<Entry>;

class DelayScanTest : public testing::Test {
 protected:
  ~DelayScanTest() override { automation::set_yield_hook({}); }

  Ranking<int16_t> scan(const Rows& draws) {
    const auto rows = make<MemoryRecordSet>(Table{{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5"}, draws});
    return scan(*rows);
  }
  Ranking<int16_t> scan(RecordSet& rows) {
    delays_.fill(never_drawn);
    yields_ = 0;
    automation::set_yield_hook([this] { ++yields_; });
    return scan_delays(rows, delays_);
  }
  int32_t cells_set() const {
    int32_t count = 0;
    for (int32_t wheel = 1; wheel <= wheel_count; ++wheel)
      for (int32_t number = 1; number <= number_count; ++number) count += delays_.at(wheel, number) != never_drawn;
    return count;
  }

  testing_support::CanonicalWheels wheels_;
  WheelGrid<int16_t> delays_;
  int32_t yields_ = 0;
};

Entry entry(const Ranking<int16_t>& ranking, int32_t index) {
  const auto& entry = ranking.at(index);
  return {entry.number, entry.wheel, entry.value};
}

/// The entries before the first that equals `filler`; the rest must equal it too.
Entries before(const Entry& filler, const Ranking<int16_t>& ranking) {
  Entries result;
  int32_t index = ranking_first;
  while (index <= ranking_last && entry(ranking, index) != filler) result.push_back(entry(ranking, index++));
  for (; index <= ranking_last; ++index) EXPECT_EQ(entry(ranking, index), filler) << "entry " << index;
  return result;
}
constexpr Entry unused{-1, -1, -1};
constexpr Entry zeros{0, 0, 0};

/// Draws of BA in which the numbers 1, 2, 3 … come out one draw after the other.
Rows one_more_number_each(int32_t draws) {
  Rows rows;
  for (int32_t i = 1; i <= draws; ++i) rows.push_back({"BA", i, 1, 1, 1, 1});
  return rows;
}

/// 18 draws of every wheel: 1 to 5, then 6 to 10, up to 86 to 90.
Rows all_numbers_drawn() {
  Rows rows;
  for (int32_t i = 1; i <= 90; i += 5)
    for (const char* wheel : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"})
      rows.push_back({wheel, i, i + 1, i + 2, i + 3, i + 4});
  return rows;
}

TEST_F(DelayScanTest, DelaysAndSuccessiveMaxima) {
  const struct {
    const char* what;
    Rows draws;
    std::vector<Entry> cells;
    Entries ranking;
  } rows[] = {
      {"nothing", {}, {{1, 1, -1}, {90, 11, -1}}, {}},
      {"the newest draw is never ranked", {{"BA", 1, 2, 3, 4, 5}}, {{1, 1, 0}, {5, 1, 0}, {6, 1, -1}, {1, 2, -1}}, {}},
      {"the newest draw that holds it counts",
       {{"BA", 1, 2, 3, 4, 5}, {"BA", 1, 2, 3, 4, 6}, {"BA", 6, 5, 4, 3, 7}},
       {{1, 1, 0}, {6, 1, 1}, {7, 1, 2}},
       {{7, 1, 2}, {6, 1, 1}}},
      {"each wheel counts its own draws",
       {{"BA", 1, 2, 3, 4, 5}, {"RN", 1, 2, 3, 4, 5}, {"NA", 7, 8, 9, 10, 11}, {"RN", 90, 1, 2, 3, 4}},
       {{1, 1, 0}, {1, 11, 0}, {7, 6, 0}, {90, 11, 1}},
       {{90, 11, 1}}},
      {"of equal delays the first met stays: draw, then column",
       {{"BA", 1, 2, 3, 4, 5},
        {"CA", 1, 2, 3, 4, 5},
        {"CA", 1, 2, 60, 4, 50},
        {"BA", 60, 2, 3, 4, 5},
        {"BA", 1, 70, 80, 4, 5}},
       {{60, 2, 1}, {50, 2, 1}, {60, 1, 1}, {70, 1, 2}, {80, 1, 2}},
       {{70, 1, 2}, {60, 2, 1}}},
      {"smaller delays met later are not ranked",
       {{"BA", 1, 1, 1, 1, 1},
        {"BA", 1, 1, 1, 1, 1},
        {"BA", 9, 1, 1, 1, 1},
        {"CA", 1, 1, 1, 1, 1},
        {"CA", 8, 1, 1, 1, 1}},
       {{9, 1, 2}, {8, 2, 1}},
       {{9, 1, 2}}},
      {"aliases in any case, numbers as texts",
       {{"ba", "1", 2, 3, 4, 5}, {"Ba", "90", 2, 3, 4, 5}},
       {{90, 1, 1}},
       {{90, 1, 1}}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(before(unused, scan(row.draws)), row.ranking);
    for (const auto& [number, wheel, delay] : row.cells)
      EXPECT_EQ(delays_.at(wheel, number), delay) << number << " on " << wheel;
    EXPECT_EQ(yields_, static_cast<int32_t>(row.draws.size()));
  }
}

TEST_F(DelayScanTest, WithTenMaximaTheRestIsZeros) {
  const struct {
    int32_t draws;
    size_t maxima;
    Entry filler;
  } rows[] = {{1, 0, unused}, {2, 1, unused}, {10, 9, unused}, {11, 10, zeros}, {12, 11, zeros}, {90, 89, zeros}};
  for (const auto& row : rows) {
    const Entries entries = before(row.filler, scan(one_more_number_each(row.draws)));
    ASSERT_EQ(entries.size(), row.maxima);
    for (size_t i = 0; i < entries.size(); ++i) {
      const auto delay = static_cast<int32_t>(row.maxima - i);
      EXPECT_EQ(entries[i], (Entry{delay + 1, 1, delay}));
    }
  }
}

TEST_F(DelayScanTest, MoreMaximaThanEntriesDropTheSmallest) {
  Rows draws = one_more_number_each(90);
  for (int32_t i = 0; i < 90; ++i) draws.push_back({"CA", 1, 1, 1, 1, 1});
  for (int32_t i = 90; i < 93; ++i) draws.push_back({"CA", i - 88, 1, 1, 1, 1});
  const auto ranking = scan(draws);
  EXPECT_EQ(entry(ranking, 0), (Entry{4, 2, 92}));
  EXPECT_EQ(entry(ranking, 2), (Entry{2, 2, 90}));
  EXPECT_EQ(entry(ranking, 3), (Entry{90, 1, 89}));
  EXPECT_EQ(entry(ranking, 89), (Entry{4, 1, 3}));
}

TEST_F(DelayScanTest, StopsBehindTheRowThatSetsTheLastCell) {
  Rows draws = all_numbers_drawn();
  draws.push_back({"XX", 1, 2, 3, 4, 5});
  const Entries entries = before(zeros, scan(draws));
  EXPECT_EQ(yields_, 198);
  EXPECT_EQ(cells_set(), 990);
  EXPECT_EQ(delays_.at(11, 90), 17);
  ASSERT_EQ(entries.size(), 17U);
  EXPECT_EQ(entries.front(), (Entry{86, 1, 17}));
  EXPECT_EQ(entries.back(), (Entry{6, 1, 1}));

  draws.pop_back();
  draws.back() = {"RN", 86, 87, 88, 89, 1};
  draws.push_back({"RN", 2, 90, 3, 4, 0});
  EXPECT_EQ(error_of([&] { scan(draws); }), 9) << "the row of the last cell is read to its end";
  EXPECT_EQ(delays_.at(11, 90), 18);

  draws.back() = {"RN", 1, 2, 3, 4, 5};
  draws.push_back({"XX", 1, 2, 3, 4, 5});
  EXPECT_EQ(error_of([&] { scan(draws); }), 5) << "with one cell to set it goes on";
  EXPECT_EQ(cells_set(), 989);
}

TEST_F(DelayScanTest, ErrorsLeaveTheCellsSetSoFar) {
  const struct {
    const char* what;
    std::vector<Variant> draw;
    int32_t error, cells;
  } rows[] = {{"unknown wheel", {"XX", 6, 7, 8, 9, 10}, 5, 5},
              {"unknown wheel before a bad number", {"XX", 0, 7, 8, 9, 10}, 5, 5},
              {"Null wheel", {Null{}, 6, 7, 8, 9, 10}, 94, 5},
              {"zero", {"BA", 0, 7, 8, 9, 10}, 9, 5},
              {"zero behind two numbers", {"BA", 6, 7, 0, 9, 10}, 9, 7},
              {"91", {"BA", 6, 7, 8, 91, 10}, 9, 8},
              {"-1", {"BA", -1, 7, 8, 9, 10}, 9, 5},
              {"Null", {"BA", 6, 7, 8, 9, Null{}}, 94, 9}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(error_of([&] { scan({{"BA", 1, 2, 3, 4, 5}, row.draw, {"CA", 1, 2, 3, 4, 5}}); }), row.error);
    EXPECT_EQ(cells_set(), row.cells);
    EXPECT_EQ(yields_, 1);
  }
  testing_support::UnloadedWheels::reset();
  EXPECT_EQ(error_of([&] { scan({{"BA", 1, 2, 3, 4, 5}}); }), 91);
}

TEST_F(DelayScanTest, RowsThatAreLostInTheMiddle) {
  const Table table{{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5"}, one_more_number_each(5)};
  int32_t good_calls = 0, most_cells = 0;
  for (int32_t error = 1; error != 0; ++good_calls) {
    testing_support::FailingRecordSet rows(make<MemoryRecordSet>(table), good_calls);
    error = error_of([&] { scan(rows); });
    EXPECT_TRUE(error == 0 || error == testing_support::rows_error) << error;
    EXPECT_GE(cells_set(), most_cells);
    most_cells = cells_set();
    ASSERT_LT(good_calls, 1000);
  }
  EXPECT_EQ(most_cells, 5);
}

TEST_F(DelayScanTest, AWheelHasAtMost32767Draws) {
  Rows draws(32767, {"VE", 1, 2, 3, 4, 5});
  draws.back()[5] = 90;
  EXPECT_EQ(entry(scan(draws), 0), (Entry{90, 10, 32766}));
  draws.push_back({"VE", 1, 2, 3, 4, 89});
  EXPECT_EQ(error_of([&] { scan(draws); }), 6);
  EXPECT_EQ(delays_.at(10, 89), 32767) << "set before the counter went on";
  EXPECT_EQ(yields_, 32767);
}

TEST_F(DelayScanTest, AHostThatRaisesEndsTheScan) {
  delays_.fill(never_drawn);
  automation::set_yield_hook([this] {
    if (++yields_ == 2) throw automation::RunTimeError(18, "interrupted");
  });
  MemoryRecordSet rows({{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5"}, one_more_number_each(5)});
  EXPECT_EQ(error_of([&] { scan_delays(rows, delays_); }), 18);
  EXPECT_EQ(cells_set(), 2);
}

}  // namespace
}  // namespace vestara
