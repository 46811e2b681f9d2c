#include "vestara/frequency/analytic_scan.h"

#include <gtest/gtest.h>

#include "automation/yield.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using automation::Variant;
using testing_support::day;
using testing_support::error_of;
using testing_support::MemoryRecordSet;
using Rows = std::vector<std::vector<Variant>>;
using Lines = std::vector<std::string>;

const Variant newest = day(2026, 11, 14), older = day(2026, 11, 12), oldest = day(2026, 11, 10);

class AnalyticScanTest : public testing::Test {
 protected:
  ~AnalyticScanTest() override { automation::set_yield_hook({}); }

  /// "14/11/2026 BA 1: 5.6.7 after 0" of each line.
  Lines scan(const Rows& rows) {
    yields_ = 0;
    automation::set_yield_hook([this] { ++yields_; });
    MemoryRecordSet set({{"dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5"}, rows});
    Lines lines;
    for (const AnalyticLine& line : scan_analytic_lines(set))
      lines.push_back(automation::date_to_text(line.date) + " " + line.wheel + " " +
                      std::to_string(line.wheel_enumerator) + ": " + line.numbers + " after " +
                      std::to_string(line.delay));
    return lines;
  }

  testing_support::CanonicalWheels wheels_;
  int32_t yields_ = 0;
};

TEST_F(AnalyticScanTest, OneLinePerDrawWithNumbersNotSeenSince) {
  const struct {
    const char* what;
    Rows draws;
    Lines lines;
  } rows[] = {
      {"nothing", {}, {}},
      {"in the order they were drawn", {{newest, "BA", 90, 5, 77, 1, 32}}, {"14/11/2026 BA 1: 90.5.77.1.32 after 0"}},
      {"only the new ones of an older draw",
       {{newest, "BA", 1, 2, 3, 4, 5}, {older, "BA", 3, 88, 1, 7, 2}},
       {"14/11/2026 BA 1: 1.2.3.4.5 after 0", "12/11/2026 BA 1: 88.7 after 1"}},
      {"no line without a new number",
       {{newest, "BA", 1, 2, 3, 4, 5}, {older, "BA", 5, 4, 3, 2, 1}, {oldest, "BA", 5, 4, 3, 2, 6}},
       {"14/11/2026 BA 1: 1.2.3.4.5 after 0", "10/11/2026 BA 1: 6 after 2"}},
      {"dates are counted over all wheels",
       {{newest, "RN", 1, 2, 3, 4, 5},
        {older, "CA", 1, 2, 3, 4, 5},
        {older, "RN", 1, 2, 3, 4, 6},
        {oldest, "VE", 9, 8, 7, 6, 5}},
       {"14/11/2026 RN 11: 1.2.3.4.5 after 0", "12/11/2026 CA 2: 1.2.3.4.5 after 1", "12/11/2026 RN 11: 6 after 1",
        "10/11/2026 VE 10: 9.8.7.6.5 after 2"}},
      {"two draws of a wheel on one date",
       {{newest, "BA", 1, 2, 3, 4, 5}, {newest, "BA", 1, 2, 3, 4, 6}},
       {"14/11/2026 BA 1: 1.2.3.4.5 after 0", "14/11/2026 BA 1: 6 after 0"}},
      {"a number twice in a draw", {{newest, "BA", 7, 7, 7, 8, 7}}, {"14/11/2026 BA 1: 7.8 after 0"}},
      {"the wheel as the archive has it", {{newest, "nA", "1", 2, 3, 4, 5}}, {"14/11/2026 nA 6: 1.2.3.4.5 after 0"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(scan(row.draws), row.lines);
    EXPECT_EQ(yields_, static_cast<int32_t>(row.draws.size()));
  }
}

TEST_F(AnalyticScanTest, StopsBehindTheRowThatSetsTheLastCell) {
  Rows draws;
  for (int32_t i = 0; i < 18; ++i)
    for (const char* wheel : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"})
      draws.push_back(
          {automation::Date::from_day(46000 - i), wheel, 5 * i + 1, 5 * i + 2, 5 * i + 3, 5 * i + 4, 5 * i + 5});
  draws.push_back({day(2020, 1, 1), "XX", 1, 2, 3, 4, 5});
  const Lines lines = scan(draws);
  ASSERT_EQ(lines.size(), 198U);
  EXPECT_TRUE(lines.back().ends_with(" RN 11: 86.87.88.89.90 after 17")) << lines.back();
  EXPECT_EQ(yields_, 197) << "the last row ends the scan at once";
  draws[197][6] = 1;
  EXPECT_EQ(error_of([&] { scan(draws); }), 5) << "with one cell to set it goes on";
}

TEST_F(AnalyticScanTest, ErrorsEndTheScan) {
  const struct {
    const char* what;
    std::vector<Variant> draw;
    int32_t error;
  } rows[] = {{"unknown wheel", {older, "XX", 1, 2, 3, 4, 5}, 5},
              {"Null wheel", {older, Null{}, 1, 2, 3, 4, 5}, 94},
              {"zero", {older, "BA", 6, 7, 8, 0, 9}, 9},
              {"91", {older, "BA", 91, 7, 8, 9, 10}, 9},
              {"Null number", {older, "BA", 6, 7, 8, 9, Null{}}, 94}};
  for (const auto& row : rows) {
    EXPECT_EQ(error_of([&] { scan({{newest, "BA", 1, 2, 3, 4, 5}, row.draw}); }), row.error) << row.what;
    EXPECT_EQ(yields_, 1) << row.what;
  }
}

}  // namespace
}  // namespace vestara
