#include <gtest/gtest.h>

#include <algorithm>

#include "tests/real_archive/real_archive.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/frequency/analytic_table.h"
#include "vestara/frequency/frequency.h"

namespace real_archive {
namespace {

using automation::Missing;
using automation::Variant;
using testing_support::day;

class RealDelays : public testing::Test {
 protected:
  void SetUp() override {
    if (path().empty()) GTEST_SKIP() << "no real archive: VESTARA_REAL_ARCHIVE is not set";
    frequency_.ActiveConnection(connector());
  }
  void TearDown() override { EXPECT_EQ(log_.bytes(), ""); }

  testing_support::LogCapture log_;
  vestara::cFrequenza frequency_;
};

// The day before each number came out again, as the press counted.
TEST_F(RealDelays, Records) {
  const struct {
    int16_t number;
    const char* wheel;
    automation::Date to;
    int32_t delay;
  } rows[] = {{53, "VE", day(2005, 2, 8), 182},  {53, "VE", day(2005, 2, 9), 0},   {8, "RM", day(1941, 8, 22), 201},
              {34, "CA", day(2006, 3, 31), 203}, {78, "BA", day(2024, 3, 7), 201}, {53, "RN", day(2017, 1, 23), 257}};
  for (const auto& row : rows) {
    frequency_.LoadRitardi(Missing{}, row.to, row.wheel);
    EXPECT_EQ(frequency_.GetRitNum(row.number, row.wheel), row.delay) << row.number << " on " << row.wheel;
    if (row.delay == 0) continue;
    EXPECT_EQ(frequency_.GetRitTopTenNumero(0), row.number) << "the largest delay of its day";
    EXPECT_EQ(frequency_.GetRitTopTen(0), row.delay);
  }
}

TEST_F(RealDelays, EveryNumberCameOutOnEveryWheel) {
  frequency_.LoadRitardi();
  int32_t most = 0;
  for (int32_t wheel = 1; wheel <= 11; ++wheel)
    for (int16_t number = 1; number <= 90; ++number) {
      EXPECT_GE(frequency_.GetRitNum(number, wheel), 0) << number << " on " << wheel;
      most = std::max(most, frequency_.GetRitNum(number, wheel));
    }
  EXPECT_EQ(frequency_.GetRitTopTen(0), most);
}

TEST_F(RealDelays, OftenAndSeldomSixtyYearsLong) {
  frequency_.LoadFrequenti(day(1939, 1, 7), day(1999, 12, 29));
  frequency_.LoadFrequenzaMedia(day(1939, 1, 7), day(1999, 12, 29));
  const struct {
    int16_t number;
    int32_t count;
  } rows[] = {{81, 1968}, {9, 1727}};
  for (const auto& row : rows) {
    int32_t count = 0;
    float average = 0;
    for (int32_t wheel = 1; wheel <= 11; ++wheel) {
      count += frequency_.GetFrqNum(row.number, wheel);
      average += frequency_.GetFrqNumAVG(row.number, wheel);
    }
    EXPECT_EQ(count, row.count) << row.number;
    const auto dates = connector()->GetRecordset(
        "SELECT DISTINCT dtEstr FROM storico WHERE dtEstr>='1939-01-07' AND dtEstr<='1999-12-29'");
    EXPECT_NEAR(average, 100.0 * row.count / dates->record_count(), 0.001) << row.number;
  }
}

TEST_F(RealDelays, TheAnalyticTableOfADay) {
  vestara::cTabAnalytics table([] { return day(2005, 2, 8); });
  table.ActiveConnection(connector());
  table.LoadTabelloneAnalitico();
  // The range has no upper end: the newest draw of the file comes first, and every number is met in time.
  frequency_.LoadRitardi();
  int32_t numbers = 0;
  for (const auto& line : table.lines()) {
    const std::string& text = line.numbers;
    numbers += 1 + static_cast<int32_t>(std::count(text.begin(), text.end(), '.'));
    const auto first = static_cast<int16_t>(std::stoi(text));
    EXPECT_LE(frequency_.GetRitNum(first, line.wheel), line.delay) << "draws of one wheel are no more than dates";
  }
  EXPECT_EQ(numbers, 990);
  EXPECT_EQ(table.GetRitardoByIndex(0), 0);
}

}  // namespace
}  // namespace real_archive
