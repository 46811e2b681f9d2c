#include <gtest/gtest.h>

#include "automation/yield.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/frequency/frequency.h"

namespace vestara {
namespace {

using automation::make;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using Calls = std::vector<std::string>;
using Entry = std::array<int32_t, 3>;  // number, wheel, delay

const std::vector<std::string> columns{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5"};

class FrequencyDelaysTest : public testing::Test {
 protected:
  FrequencyDelaysTest() {
    scripted_->state = 0;
    // 33 has delay 2 on FI, 9 has delay 1.
    draws_ = {columns, {{"FI", 1, 2, 3, 4, 5}, {"FI", 9, 2, 3, 4, 5}, {"BA", 1, 2, 3, 4, 33}, {"FI", 33, 2, 3, 4, 5}}};
    scripted_->default_answer = draws_;
    frequency_.ActiveConnection(recorder_);
    recorder_->calls.clear();
  }
  ~FrequencyDelaysTest() override { automation::set_yield_hook({}); }

  Entry entry(int16_t index) {
    return {frequency_.GetRitTopTenNumero(index), frequency_.GetRitTopTenERuota(index), frequency_.GetRitTopTen(index)};
  }
  /// The sum of the 990 delays: -990 when nothing was drawn.
  int32_t sum() {
    int32_t result = 0;
    for (int32_t wheel = 1; wheel <= 11; ++wheel)
      for (int16_t number = 1; number <= 90; ++number) result += frequency_.GetRitNum(number, wheel);
    return result;
  }
  void load_draws() {
    scripted_->default_answer = draws_;
    frequency_.LoadRitardi();
    ASSERT_EQ(entry(0), (Entry{33, 3, 2}));
  }

  testing_support::LogCapture log_;
  testing_support::CanonicalWheels wheels_;
  testing_support::Table draws_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cFrequenza frequency_;
};
constexpr Entry unused{-1, -1, -1};
constexpr Entry zeros{0, 0, 0};

TEST_F(FrequencyDelaysTest, OneStatementPerLoad) {
  const std::string head =
      "OpenRecordset SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM STORICO WHERE estr1 >0 AND estr2 >0 AND estr3 >0 "
      "AND estr4 >0 AND estr5 >0";
  const struct {
    Variant from, to;
    const char *wheels, *filter;
  } rows[] = {
      {Missing{}, Missing{}, "", ""},
      {Null{}, Null{}, "   ", ""},
      {Missing{}, "08/02/2005", "VE", " AND (dtEstr <='2005-02-08') AND ruota='VE'"},
      {day(2026, 1, 2), Null{}, "BA,NA,RN", " AND (dtEstr >='2026-01-02') AND ruota='BA' OR ruota='NA' OR ruota='RN'"},
      {"no date", Missing{}, "BA, CA,", " AND (dtEstr >=NULL) AND ruota='BA' OR ruota=' CA' OR ruota=''"}};
  for (const auto& row : rows) {
    frequency_.LoadRitardi(row.from, row.to, row.wheels);
    EXPECT_EQ(recorder_->take(), (Calls{head + row.filter + " ORDER BY dtEstr DESC", "CloseRecordset"}));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(FrequencyDelaysTest, DelaysByEnumeratorAndByAlias) {
  frequency_.LoadRitardi();
  const struct {
    int16_t number;
    Variant wheel;
    int32_t delay;
    Calls log;
  } rows[] = {{33, 3, 2, {}},
              {33, "FI", 2, {}},
              {33, "fi", 2, {}},
              {33, "3", 2, {}},
              {9, static_cast<int16_t>(3), 1, {}},
              {2, 3.0, 0, {}},
              {33, 1, 0, {}},
              {9, "BA", -1, {}},
              {90, 11, -1, {}},
              {33, "XX", 0, {"cFrequenza.GetRitNum() 5"}},
              {33, "", 0, {"cFrequenza.GetRitNum() 5"}},
              {33, Null{}, 0, {"cFrequenza.GetRitNum() 94"}},
              {33, 0, 0, {"cFrequenza.GetRitNum() 9"}},
              {33, 12, 0, {"cFrequenza.GetRitNum() 9"}},
              {33, -1, 0, {"cFrequenza.GetRitNum() 9"}},
              {0, 3, 0, {"cFrequenza.GetRitNum() 9"}},
              {91, "FI", 0, {"cFrequenza.GetRitNum() 9"}},
              {-1, "FI", 0, {"cFrequenza.GetRitNum() 9"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(frequency_.GetRitNum(row.number, row.wheel), row.delay) << testing::PrintToString(row.wheel);
    EXPECT_EQ(log_.take(), row.log) << testing::PrintToString(row.wheel);
  }
}

TEST_F(FrequencyDelaysTest, BeforeALoadThereIsNothing) {
  EXPECT_EQ(frequency_.GetRitNum(5, 3), 0);
  EXPECT_EQ(frequency_.GetRitNum(5, "XX"), 0);
  EXPECT_EQ(log_.take(), (Calls{"cFrequenza.GetRitNum() 9", "cFrequenza.GetRitNum() 9"}));
  EXPECT_EQ(entry(0), zeros);
  EXPECT_EQ(log_.take(), (Calls{"cFrequenza.GetRitTopTenNumero() 9", "cFrequenza.GetRitTopTenERuota() 9",
                                "cFrequenza.GetRitTopTen() 9"}));
  constexpr int16_t outside[] = {-1, 90, -32768, 32767};
  for (const int16_t index : outside) EXPECT_EQ(entry(index), zeros);
  EXPECT_EQ(log_.bytes(), "") << "an index outside is no error";
}

TEST_F(FrequencyDelaysTest, RankingByIndex) {
  frequency_.LoadRitardi();
  const struct {
    int16_t index;
    Entry entry;
  } rows[] = {{0, {33, 3, 2}}, {1, {9, 3, 1}}, {2, unused},    {89, unused},
              {90, zeros},     {-1, zeros},    {32767, zeros}, {-32768, zeros}};
  for (const auto& row : rows) EXPECT_EQ(entry(row.index), row.entry) << row.index;
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(FrequencyDelaysTest, AnEmptyRangeReplacesWhatWasThere) {
  load_draws();
  scripted_->default_answer = testing_support::Table{columns, {}};
  frequency_.LoadRitardi();
  EXPECT_EQ(sum(), -990);
  for (int16_t index = 0; index <= 89; ++index) EXPECT_EQ(entry(index), unused);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(FrequencyDelaysTest, FailuresKeepTheRankingAndTheNextLoadWorks) {
  const std::string label = "cFrequenza.LoadRitardi() ";
  const struct {
    const char* what;
    FailurePlan plan;
    bool cells;  ///< some were set
    Calls log;
  } rows[] = {{"refused", {1, Failure::refuses}, false, {}},
              {"error", {1, Failure::raises_error}, false, {label + "3001"}},
              {"exception", {1, Failure::raises_exception}, false, {label + "-2147467259"}},
              {"no record set", {1, Failure::hands_over_nothing}, false, {label + "91"}},
              {"first call of the rows", {1, Failure::rows_raise, 0}, false, {label + "3002"}},
              {"in the middle of the rows", {1, Failure::rows_raise, 22}, true, {label + "3002"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    load_draws();
    frequency_.ActiveConnection(make<FailingConnector>(recorder_, row.plan));
    frequency_.LoadRitardi();
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_EQ(entry(0), (Entry{33, 3, 2}));
    EXPECT_EQ(sum() > -990, row.cells);
    EXPECT_EQ(frequency_.GetRitNum(33, "FI"), -1);
    load_draws();
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(FrequencyDelaysTest, ARowThatFailsKeepsTheRankingAndTheCellsBeforeIt) {
  const struct {
    std::vector<Variant> draw;
    const char* log;
  } rows[] = {{{"XX", 1, 2, 3, 4, 5}, "cFrequenza.LoadRitardi() 5"},
              {{"BA", 1, 0, 3, 4, 5}, "cFrequenza.LoadRitardi() 9"},
              {{"BA", 1, Null{}, 3, 4, 5}, "cFrequenza.LoadRitardi() 94"}};
  for (const auto& row : rows) {
    load_draws();
    scripted_->default_answer = testing_support::Table{columns, {{"RN", 50, 51, 52, 53, 54}, row.draw}};
    frequency_.LoadRitardi();
    EXPECT_EQ(log_.take(), Calls{row.log});
    EXPECT_EQ(entry(0), (Entry{33, 3, 2}));
    EXPECT_EQ(frequency_.GetRitNum(54, "RN"), 0);
    EXPECT_EQ(frequency_.GetRitNum(33, "FI"), -1);
  }
}

TEST_F(FrequencyDelaysTest, AHostThatRaisesEndsTheLoad) {
  load_draws();
  automation::set_yield_hook([] { throw automation::RunTimeError(18, "interrupted"); });
  frequency_.LoadRitardi();
  EXPECT_EQ(log_.take(), Calls{"cFrequenza.LoadRitardi() 18"});
  EXPECT_EQ(entry(0), (Entry{33, 3, 2}));
  EXPECT_EQ(sum(), -985) << "five cells of the first row";
  automation::set_yield_hook({});
  load_draws();
}

TEST_F(FrequencyDelaysTest, AHostMayTakeTheConnectorAwayDuringALoad) {
  int32_t yields = 0;
  automation::set_yield_hook([&] {
    ++yields;
    frequency_.ActiveConnection(Ref<DbConnector>());
  });
  frequency_.LoadRitardi();
  EXPECT_EQ(yields, 4);
  EXPECT_EQ(entry(0), (Entry{33, 3, 2}));
  EXPECT_EQ(recorder_->take().back(), "CloseRecordset");
}

TEST_F(FrequencyDelaysTest, WithoutAConnector) {
  load_draws();
  frequency_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(frequency_.ActiveConnection());
  frequency_.LoadRitardi();
  EXPECT_EQ(log_.take(), Calls{"cFrequenza.LoadRitardi() 91"});
  EXPECT_EQ(entry(0), (Entry{33, 3, 2}));
  EXPECT_EQ(sum(), -990);
}

TEST_F(FrequencyDelaysTest, AnOpenConnectorFillsTheWheelTables) {
  testing_support::UnloadedWheels::reset();
  scripted_->default_answer = testing_support::canonical_wheels();
  for (const int32_t state : {0, 2, -1}) {
    scripted_->state = state;
    frequency_.ActiveConnection(recorder_);
    EXPECT_EQ(recorder_->take(), Calls{"ConnectionState"}) << state;
    EXPECT_FALSE(wheel_tables()->RuoteEnumByAlias);
  }
  scripted_->state = 1;
  frequency_.ActiveConnection(recorder_);
  EXPECT_EQ(
      recorder_->take(),
      (Calls{"ConnectionState", "OpenRecordset " + std::string(testing_support::wheels_statement), "CloseRecordset"}));
  EXPECT_EQ(wheel_of("RN"), 11);
  EXPECT_TRUE(frequency_.ActiveConnection() == Ref<DbConnector>(recorder_));
  frequency_.ActiveConnection(make<FailingConnector>(recorder_, FailurePlan{1, Failure::raises_error}));
  EXPECT_EQ(log_.take(), Calls{"mPrecarica.PreloadRuoteAlias() 3001"});
}

}  // namespace
}  // namespace vestara
