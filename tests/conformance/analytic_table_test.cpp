#include "vestara/frequency/analytic_table.h"

#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"
#include "tests/support/analytic_oracle.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace conformance {
namespace {

using automation::Date;
using testing_support::Archive;
using testing_support::day;
using Lines = std::vector<std::string>;

class AnalyticTableTest : public BackEnd {
 protected:
  AnalyticTableTest() { table_.ActiveConnection(connector_); }
  Lines load() {
    table_.LoadTabelloneAnalitico();
    Lines lines;
    for (int16_t i = 0; i < table_.GetItemCount(); ++i)
      lines.push_back(testing_support::analytic_line(table_.lines()[static_cast<size_t>(i)].date,
                                                     table_.GetRuotaByIndex(i), table_.GetERuotaByIndex(i),
                                                     table_.GetNumeriByIndex(i), table_.GetRitardoByIndex(i)));
    return lines;
  }

  testing_support::LogCapture log_;
  Date today_ = day(2001, 12, 1);
  vestara::cTabAnalytics table_{[this] { return today_; }};
};

INSTANTIATE_TEST_SUITE_P(Engines, AnalyticTableTest, engines(), engine_name);

TEST_P(AnalyticTableTest, AThousandArchivesAgreeWithTheOracle) {
  size_t lines = 0, failures = 0, stopped = 0;
  for (uint64_t seed = 1; seed <= seeds() && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    testing_support::Random random(seed);
    const Archive archive = testing_support::odd_archive(random);
    store(archive);
    // Today is such that the range begins on, before or behind a draw of the archive.
    const int32_t first = archive.empty() ? 36500 : archive[random.below(archive.size())].date.day();
    today_ = Date::from_serial(first + 729.0 + static_cast<double>(random.below(3)) + (random.one_in(2) ? 0.9 : 0.0));
    if (random.one_in(2)) today_ = day(2001, 12, 1);
    const auto expected = testing_support::analytic_table_of(archive, today_);
    ASSERT_EQ(load(), expected.lines);
    ASSERT_EQ(log_.take(), expected.error == 0
                               ? Lines{}
                               : Lines{"cTabAnalytics.LoadTabelloneAnalitico() " + std::to_string(expected.error)});
    lines += expected.lines.size();
    failures += expected.error != 0;
    stopped += expected.stopped;
  }
  EXPECT_GT(lines, 20000 * seeds() / 1000);
  EXPECT_GT(failures, 50 * seeds() / 1000);
  EXPECT_GT(stopped, 10 * seeds() / 1000);
}

TEST_P(AnalyticTableTest, Cases) {
  store({{day(1999, 11, 30), 1, "BA", {81, 82, 83, 84, 85}},
         {day(1999, 12, 2), 1, "BA", {71, 72, 73, 74, 1}},
         {day(2001, 11, 20), 2, "NA", {1, 2, 3, 4, 5}},
         {day(2001, 11, 20), 2, "BA", {9, 12, 5, 1, 7}},
         {day(2001, 11, 22), 3, "CA", {0, 0, 0, 0, 0}},
         {day(2001, 11, 24), 4, "BA", {1, 2, 3, 4, 5}},
         {day(2001, 12, 4), 5, "RN", {90, 1, 45, 33, 2}}});
  const Lines expected{"04/12/2001 RN 11: 90.1.45.33.2 after 0", "24/11/2001 BA 1: 1.2.3.4.5 after 1",
                       "20/11/2001 NA 6: 1.2.3.4.5 after 2", "20/11/2001 BA 1: 9.12.7 after 2",
                       "02/12/1999 BA 1: 71.72.73.74 after 3"};
  EXPECT_EQ(load(), expected) << "draws behind today and those of a row without numbers included and left out";
  today_ = testing_support::moment({2001, 12, 1, 23, 59, 59});
  EXPECT_EQ(load(), expected) << "the day counts, not its hour";
  today_ = day(2001, 12, 2);
  EXPECT_EQ(load(), Lines(expected.begin(), expected.end() - 1)) << "the oldest draw is 731 days old";
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace conformance
