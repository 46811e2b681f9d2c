#include "vestara/frequency/analytic_table.h"

#include <gtest/gtest.h>

#include "automation/yield.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::Date;
using automation::make;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::moment;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;
using Calls = std::vector<std::string>;

const std::vector<std::string> columns{"dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5"};
const std::vector<Variant> newest{day(2026, 11, 14), "BA", 1, 2, 3, 4, 5};
const std::vector<Variant> older{day(2026, 11, 12), "rn", 90, 1, 77, 5, 12};

std::string statement_since(const char* date) {
  return "OpenRecordset SELECT dtEstr,ruota,estr1,estr2,estr3,estr4,estr5 FROM STORICO WHERE estr1 >0 AND estr2 >0 AND "
         "estr3 >0 AND estr4 >0 AND estr5 >0 AND dtEstr >='" +
         std::string(date) + "' ORDER BY dtEstr DESC";
}

class AnalyticTableTest : public testing::Test {
 protected:
  AnalyticTableTest() {
    scripted_->state = 0;
    scripted_->default_answer = Table{columns, {newest, older}};
    table_.ActiveConnection(recorder_);
    recorder_->calls.clear();
  }
  ~AnalyticTableTest() override { automation::set_yield_hook({}); }

  /// "BA 1: 5.6.7 after 0" of one index.
  std::string line(int16_t index) const {
    return table_.GetRuotaByIndex(index) + " " + std::to_string(table_.GetERuotaByIndex(index)) + ": " +
           table_.GetNumeriByIndex(index) + " after " + std::to_string(table_.GetRitardoByIndex(index));
  }
  bool is_loaded() const {
    return table_.GetItemCount() == 2 && line(0) == "BA 1: 1.2.3.4.5 after 0" &&
           line(1) == "rn 11: 90.1.77.5.12 after 1";
  }
  bool is_empty() const { return table_.GetItemCount() == 0 && table_.lines().empty() && line(0) == " 0:  after 0"; }

  testing_support::LogCapture log_;
  testing_support::CanonicalWheels wheels_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  Date today_ = day(2026, 11, 15);
  cTabAnalytics table_{[this] { return today_; }};
};

TEST_F(AnalyticTableTest, LinesByIndex) {
  EXPECT_TRUE(is_empty()) << "before a load";
  table_.LoadTabelloneAnalitico();
  EXPECT_TRUE(is_loaded());
  constexpr int16_t outside[] = {-1, 2, 3, -32768, 32767};
  for (const int16_t index : outside) EXPECT_EQ(line(index), " 0:  after 0") << index;
  ASSERT_EQ(table_.lines().size(), 2U);
  EXPECT_EQ(table_.lines()[1].date, day(2026, 11, 12));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(AnalyticTableTest, TheRangeEndsNowhereAndBegins730DaysAgo) {
  const struct {
    Date today;
    const char* from;
  } rows[] = {{day(2026, 11, 15), "2024-11-15"},
              {moment({2026, 11, 15, 0, 0, 1}), "2024-11-15"},
              {moment({2026, 11, 15, 23, 59, 59}), "2024-11-15"},
              {day(2024, 2, 29), "2022-03-01"},
              {day(2025, 2, 28), "2023-03-01"},
              {moment({2026, 1, 1, 12}), "2024-01-02"}};
  for (const auto& row : rows) {
    today_ = row.today;
    table_.LoadTabelloneAnalitico();
    EXPECT_EQ(recorder_->take(), (Calls{statement_since(row.from), "CloseRecordset"}));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(AnalyticTableTest, GivenDatesAreNotLookedAt) {
  table_.LoadTabelloneAnalitico();
  const Calls calls = recorder_->take();
  for (const Variant& date : {Variant(Null{}), Variant("no date"), Variant(day(1871, 1, 7)), Variant(-5.5)}) {
    table_.LoadTabelloneAnalitico(date, date);
    EXPECT_EQ(recorder_->take(), calls);
    EXPECT_TRUE(is_loaded());
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(AnalyticTableTest, FailuresLeaveNoLinesAndTheNextLoadWorks) {
  const std::string label = "cTabAnalytics.LoadTabelloneAnalitico() ";
  const struct {
    const char* what;
    FailurePlan plan;
    Calls log;
  } rows[] = {{"refused", {1, Failure::refuses}, {}},
              {"error", {1, Failure::raises_error}, {label + "3001"}},
              {"exception", {1, Failure::raises_exception}, {label + "-2147467259"}},
              {"no record set", {1, Failure::hands_over_nothing}, {label + "91"}},
              {"first call of the rows", {1, Failure::rows_raise, 0}, {label + "3002"}},
              {"behind the first row", {1, Failure::rows_raise, 18}, {label + "3002"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    table_.ActiveConnection(recorder_);
    table_.LoadTabelloneAnalitico();
    EXPECT_TRUE(is_loaded());
    table_.ActiveConnection(make<FailingConnector>(recorder_, row.plan));
    table_.LoadTabelloneAnalitico();
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(is_empty());
    table_.LoadTabelloneAnalitico();
    EXPECT_TRUE(is_loaded());
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(AnalyticTableTest, ARowThatFailsLeavesNoLines) {
  const struct {
    std::vector<Variant> draw;
    const char* error;
  } rows[] = {{{day(2026, 11, 10), "XX", 1, 2, 3, 4, 5}, "5"},
              {{day(2026, 11, 10), "BA", 1, 2, 3, 4, 91}, "9"},
              {{day(2026, 11, 10), "BA", 1, 2, 3, 4, 0}, "9"},
              {{day(2026, 11, 10), "BA", Null{}, 2, 3, 4, 5}, "94"}};
  for (const auto& row : rows) {
    scripted_->default_answer = Table{columns, {newest, older}};
    table_.LoadTabelloneAnalitico();
    scripted_->default_answer = Table{columns, {newest, older, row.draw}};
    table_.LoadTabelloneAnalitico();
    EXPECT_TRUE(is_empty());
    EXPECT_EQ(log_.take(), Calls{"cTabAnalytics.LoadTabelloneAnalitico() " + std::string(row.error)});
  }
}

TEST_F(AnalyticTableTest, AHostThatRaisesLeavesNoLines) {
  table_.LoadTabelloneAnalitico();
  automation::set_yield_hook([] { throw automation::RunTimeError(18, "interrupted"); });
  table_.LoadTabelloneAnalitico();
  EXPECT_TRUE(is_empty());
  EXPECT_EQ(log_.take(), Calls{"cTabAnalytics.LoadTabelloneAnalitico() 18"});
}

TEST_F(AnalyticTableTest, AnEmptyRangeHasNoLines) {
  table_.LoadTabelloneAnalitico();
  scripted_->default_answer = Table{columns, {}};
  table_.LoadTabelloneAnalitico();
  EXPECT_TRUE(is_empty());
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(AnalyticTableTest, WithoutAConnector) {
  table_.LoadTabelloneAnalitico();
  table_.ActiveConnection(Ref<DbConnector>());
  EXPECT_TRUE(is_loaded()) << "the lines stay until the next load";
  table_.LoadTabelloneAnalitico();
  EXPECT_TRUE(is_empty());
  EXPECT_EQ(log_.take(), Calls{"cTabAnalytics.LoadTabelloneAnalitico() 91"});
}

TEST_F(AnalyticTableTest, AnOpenConnectorFillsTheWheelTables) {
  testing_support::UnloadedWheels::reset();
  scripted_->default_answer = testing_support::canonical_wheels();
  table_.ActiveConnection(recorder_);
  EXPECT_EQ(recorder_->take(), Calls{"ConnectionState"});
  scripted_->state = 1;
  table_.ActiveConnection(recorder_);
  EXPECT_EQ(
      recorder_->take(),
      (Calls{"ConnectionState", "OpenRecordset " + std::string(testing_support::wheels_statement), "CloseRecordset"}));
  EXPECT_EQ(wheel_of("RN"), 11);
  EXPECT_TRUE(table_.ActiveConnection() == Ref<DbConnector>(recorder_));
}

TEST(AnalyticTableClock, IsTheLocalDayUnlessGiven) {
  const auto scripted = make<ScriptedConnector>();
  scripted->state = 0;
  const auto recorder = make<RecordingConnector>(scripted);
  cTabAnalytics table;
  table.ActiveConnection(recorder);
  recorder->calls.clear();
  scripted->default_answer = Table{columns, {}};
  const Date before = automation::now();
  table.LoadTabelloneAnalitico();
  const Date after = automation::now();
  const auto since = [](Date today) {
    return statement_since(automation::iso_day(Date::from_day(today.day() - 730)).c_str());
  };
  const std::string sent = recorder->calls.front();
  EXPECT_TRUE(sent == since(before) || sent == since(after)) << sent;
}

}  // namespace
}  // namespace vestara
