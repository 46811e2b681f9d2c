#include <gtest/gtest.h>

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
using testing_support::Table;
using Calls = std::vector<std::string>;
using Entry = std::array<int32_t, 3>;  // number, wheel, count

const std::string dates_text = "SELECT st.dtEstr From storico as st";
const std::string counts_text =
    "SELECT st.ruota, st.estrazione, count(*) AS num FROM (SELECT storico.ID, storico.concorsoNumero, storico.dtestr,  "
    "storico.ruota,  storico.estr1 as estrazione FROM storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr2 From storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr3 From storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr4 From storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr5 From storico)AS st ";
const std::string counts_end = " GROUP BY st.ruota,st.estrazione ORDER BY count(*) DESC";
constexpr int16_t outside[] = {-1, 90, -32768, 32767};
const std::string all_dates = dates_text + " GROUP BY st.dtEstr";

Table counts_of(std::vector<std::vector<Variant>> rows) { return {{"st.ruota", "st.estrazione", "num"}, rows}; }
Table dates_of(size_t dates) { return {{"st.dtEstr"}, std::vector<std::vector<Variant>>(dates, {day(2026, 1, 2)})}; }

class FrequencyCountsTest : public testing::Test {
 protected:
  FrequencyCountsTest() {
    scripted_->state = 0;
    scripted_->default_answer = counts_of({{"RN", 90, 12}, {"BA", 1, 12}, {"NA", 44, 3}});
    scripted_->answers[all_dates] = dates_of(48);
    frequency_.ActiveConnection(recorder_);
    recorder_->calls.clear();
  }
  Entry count_entry(int16_t index) {
    return {frequency_.GetFrqTopTenNumero(index), frequency_.GetFrqTopTenERuota(index), frequency_.GetFrqTopTen(index)};
  }
  template <class Cell>
  float sum(Cell cell) {
    float result = 0;
    for (int32_t wheel = 1; wheel <= 11; ++wheel)
      for (int16_t number = 1; number <= 90; ++number) result += static_cast<float>((frequency_.*cell)(number, wheel));
    return result;
  }
  void load_both() {
    frequency_.ActiveConnection(recorder_);
    frequency_.LoadFrequenti();
    frequency_.LoadFrequenzaMedia();
    ASSERT_EQ(log_.take(), Calls{});
    ASSERT_EQ(count_entry(0), (Entry{90, 11, 12}));
    ASSERT_EQ(frequency_.GetFrqTopTenAVG(0), 25.0F);
    recorder_->calls.clear();
  }

  testing_support::LogCapture log_;
  testing_support::CanonicalWheels wheels_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cFrequenza frequency_;
};

TEST_F(FrequencyCountsTest, StatementsOfTheLoads) {
  const struct {
    Variant from, to;
    const char *wheels, *filter;
  } rows[] = {
      {Missing{}, Null{}, "", ""},
      {day(1939, 1, 7), "29/12/1999 12:00", "", " WHERE (st.dtEstr >='1939-01-07') AND (st.dtEstr <='1999-12-29')"},
      {Missing{}, Missing{}, "BA", " WHERE st.ruota IN('BA')"},
      {"x", Missing{}, "BA, CA,",
       " WHERE (st.dtEstr >=NULL) AND st.ruota IN('BA') OR st.ruota IN(' CA') OR st.ruota IN('')"}};
  for (const auto& row : rows) {
    const std::string counts = "OpenRecordset " + counts_text + row.filter + counts_end;
    const std::string dates = "OpenRecordset " + dates_text + row.filter + " GROUP BY st.dtEstr";
    frequency_.LoadFrequenti(row.from, row.to, row.wheels);
    EXPECT_EQ(recorder_->take(), (Calls{counts, "CloseRecordset"}));
    frequency_.LoadFrequenzaMedia(row.from, row.to, row.wheels);
    EXPECT_EQ(recorder_->take(), (Calls{dates, "CloseRecordset", counts, "CloseRecordset"}));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(FrequencyCountsTest, CellsByEnumeratorAndByAlias) {
  load_both();
  const struct {
    int16_t number;
    Variant wheel;
    int32_t count;
    float average;
    const char* error;
  } rows[] = {{90, 11, 12, 25.0F, ""},   {90, "RN", 12, 25.0F, ""},    {90, "rn", 12, 25.0F, ""},
              {90, "11", 12, 25.0F, ""}, {44, "NA", 3, 6.25F, ""},     {2, "BA", 0, 0.0F, ""},
              {90, "XX", 0, 0.0F, " 5"}, {90, Null{}, 0, 0.0F, " 94"}, {0, 11, 0, 0.0F, " 9"},
              {91, "RN", 0, 0.0F, " 9"}, {90, 12, 0, 0.0F, " 9"},      {90, 0, 0, 0.0F, " 9"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.wheel));
    EXPECT_EQ(frequency_.GetFrqNum(row.number, row.wheel), row.count);
    EXPECT_EQ(frequency_.GetFrqNumAVG(row.number, row.wheel), row.average);
    const std::string error = row.error;
    EXPECT_EQ(log_.take(),
              error.empty() ? Calls{} : (Calls{"cFrequenza.GetFrqNum()" + error, "cFrequenza.GetFrqNumAVG()" + error}));
  }
}

TEST_F(FrequencyCountsTest, BeforeALoadEveryGetterLogsOnce) {
  EXPECT_EQ(frequency_.GetFrqNum(5, 3), 0);
  EXPECT_EQ(frequency_.GetFrqNumAVG(5, 3), 0.0F);
  EXPECT_EQ(frequency_.GetFrqTopTenERuotaAVG(0), 0);
  EXPECT_EQ(frequency_.GetFrqTopTenNumeroAVG(89), 0);
  EXPECT_EQ(frequency_.GetFrqTopTenAVG(0), 0.0F);
  EXPECT_EQ(frequency_.GetFrqTopTenERuota(0), 0);
  EXPECT_EQ(frequency_.GetFrqTopTenNumero(0), 0);
  EXPECT_EQ(frequency_.GetFrqTopTen(0), 0);
  EXPECT_EQ(log_.take(), (Calls{"cFrequenza.GetFrqNum() 9", "cFrequenza.GetFrqNumAVG() 9",
                                "cFrequenza.GetFrqTopTenERuotaAVG() 9", "cFrequenza.GetFrqTopTenNumeroAVG() 9",
                                "cFrequenza.GetFrqTopTenAVG() 9", "cFrequenza.GetFrqTopTenERuota() 9",
                                "cFrequenza.GetFrqTopTenNumero() 9", "cFrequenza.GetFrqTopTen() 9"}));
}

TEST_F(FrequencyCountsTest, AnIndexOutsideIsNothingBeforeAndAfterALoad) {
  for (const char* when : {"before", "after"}) {
    for (const int16_t index : outside) {
      EXPECT_EQ(count_entry(index), (Entry{0, 0, 0})) << when;
      EXPECT_EQ(frequency_.GetFrqTopTenERuotaAVG(index), 0) << when;
      EXPECT_EQ(frequency_.GetFrqTopTenNumeroAVG(index), 0) << when;
      EXPECT_EQ(frequency_.GetFrqTopTenAVG(index), 0.0F) << when;
    }
    EXPECT_EQ(log_.bytes(), "") << when;
    load_both();
  }
}

TEST_F(FrequencyCountsTest, CountsHaveOneEntryPerLevel) {
  scripted_->default_answer = counts_of({{"BA", 1, 12}, {"CA", 2, 12}, {"FI", 3, 11}, {"GE", 4, 10}, {"RN", 90, 10}});
  frequency_.LoadFrequenti();
  EXPECT_EQ(count_entry(0), (Entry{1, 1, 12}));
  EXPECT_EQ(count_entry(1), (Entry{3, 3, 11}));
  EXPECT_EQ(count_entry(2), (Entry{4, 4, 10}));
  for (int16_t index = 3; index <= 89; ++index) EXPECT_EQ(count_entry(index), (Entry{-1, -1, -1}));
  EXPECT_EQ(frequency_.GetFrqNum(90, "RN"), 10);
}

// Number and wheel of an average ask whether the counts were ranked: a slip that hosts have come to live with.
TEST_F(FrequencyCountsTest, NumberAndWheelOfAnAverageNeedBothLoads) {
  frequency_.LoadFrequenzaMedia();
  EXPECT_EQ(frequency_.GetFrqTopTenAVG(0), 25.0F);
  EXPECT_EQ(frequency_.GetFrqTopTenNumeroAVG(0), 0);
  EXPECT_EQ(frequency_.GetFrqTopTenERuotaAVG(0), 0);
  EXPECT_EQ(log_.take(), (Calls{"cFrequenza.GetFrqTopTenNumeroAVG() 9", "cFrequenza.GetFrqTopTenERuotaAVG() 9"}));
  frequency_.LoadFrequenti();
  const struct {
    int16_t index;
    int32_t number, wheel;
    float average;
  } rows[] = {{0, 90, 11, 25.0F}, {1, 1, 1, 25.0F}, {2, 44, 6, 6.25F}, {3, 0, 0, 0.0F}, {89, 0, 0, 0.0F}};
  for (const auto& row : rows) {
    EXPECT_EQ(frequency_.GetFrqTopTenNumeroAVG(row.index), row.number) << row.index;
    EXPECT_EQ(frequency_.GetFrqTopTenERuotaAVG(row.index), row.wheel) << row.index;
    EXPECT_EQ(frequency_.GetFrqTopTenAVG(row.index), row.average) << row.index;
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(FrequencyCountsTest, AfterTheCountsAloneTheAveragesAreMissing) {
  frequency_.LoadFrequenti();
  EXPECT_EQ(frequency_.GetFrqTopTenNumeroAVG(0), 0);
  EXPECT_EQ(frequency_.GetFrqTopTenERuotaAVG(89), 0);
  EXPECT_EQ(frequency_.GetFrqTopTenAVG(0), 0.0F);
  EXPECT_EQ(frequency_.GetFrqNumAVG(90, 11), 0.0F);
  EXPECT_EQ(log_.take(), (Calls{"cFrequenza.GetFrqTopTenNumeroAVG() 9", "cFrequenza.GetFrqTopTenERuotaAVG() 9",
                                "cFrequenza.GetFrqTopTenAVG() 9", "cFrequenza.GetFrqNumAVG() 9"}));
  EXPECT_EQ(frequency_.GetRitTopTen(0), 0);
  EXPECT_EQ(log_.take(), Calls{"cFrequenza.GetRitTopTen() 9"});
}

TEST_F(FrequencyCountsTest, FailuresKeepTheRankingsAndTheNextLoadsWork) {
  const std::string counts = "cFrequenza.LoadFrequenti() ", averages = "cFrequenza.LoadFrequenzaMedia() ";
  // What fails in the counts fails in the same way in the second statement of the averages.
  const struct {
    const char* what;
    Failure how;
    int32_t good_calls;
    const char* error;
    bool cells;  ///< some were set
  } rows[] = {{"refused", Failure::refuses, 0, "", false},
              {"error", Failure::raises_error, 0, "3001", false},
              {"exception", Failure::raises_exception, 0, "-2147467259", false},
              {"no record set", Failure::hands_over_nothing, 0, "91", false},
              {"first call of the rows", Failure::rows_raise, 0, "3002", false},
              {"in the middle of the rows", Failure::rows_raise, 10, "3002", true}};
  for (const auto& row : rows) {
    const auto log = [&](const std::string& label) { return *row.error ? Calls{label + row.error} : Calls{}; };
    for (const int32_t statement : {0, 1, 2}) {
      SCOPED_TRACE(row.what + std::string(", statement ") + std::to_string(statement));
      load_both();
      frequency_.ActiveConnection(
          make<FailingConnector>(recorder_, FailurePlan{std::max(statement, 1), row.how, row.good_calls}));
      recorder_->calls.clear();
      if (statement == 0) {
        frequency_.LoadFrequenti();
        EXPECT_EQ(log_.take(), log(counts));
        EXPECT_EQ(sum(&cFrequenza::GetFrqNum) > 0, row.cells);
        EXPECT_EQ(frequency_.GetFrqNum(44, 6), 0);
      } else if (statement == 2 || row.good_calls == 0) {
        frequency_.LoadFrequenzaMedia();
        EXPECT_EQ(log_.take(), log(averages));
        EXPECT_EQ(sum(&cFrequenza::GetFrqNumAVG) > 0, row.cells);
        EXPECT_EQ(frequency_.GetFrqNumAVG(44, 6), 0.0F);
        if (statement == 1) {
          for (const auto& call : recorder_->calls) EXPECT_FALSE(call.ends_with(counts_end)) << "no second statement";
        }
      }
      EXPECT_EQ(count_entry(0), (Entry{90, 11, 12}));
      EXPECT_EQ(frequency_.GetFrqTopTenNumeroAVG(2), 44);
      EXPECT_EQ(frequency_.GetFrqTopTenAVG(2), 6.25F);
      EXPECT_EQ(log_.bytes(), "");
    }
  }
}

TEST_F(FrequencyCountsTest, RowsThatFailKeepTheRankings) {
  const struct {
    const char* what;
    std::vector<Variant> row;
    size_t dates;
    const char *counts_error, *averages_error;
  } rows[] = {{"unknown wheel", {"XX", 1, 1}, 10, "5", "5"},
              {"number 0", {"BA", 0, 1}, 10, "9", "9"},
              {"number 91", {"BA", 91, 1}, 10, "9", "9"},
              {"Null number", {"BA", Null{}, 1}, 10, "94", "94"},
              {"a count beyond 16 bits", {"BA", 1, 32768}, 10, "6", nullptr},
              {"no draws", {"BA", 1, 1}, 0, nullptr, "11"},
              {"nothing of no draws", {"BA", 1, 0}, 0, nullptr, "6"},
              {"32,768 dates", {"BA", 1, 1}, 32768, nullptr, "6"}};
  const Table good = *scripted_->default_answer;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    scripted_->default_answer = good;
    scripted_->answers[all_dates] = dates_of(48);
    load_both();
    scripted_->default_answer = counts_of({row.row});
    scripted_->answers[all_dates] = dates_of(row.dates);
    if (row.counts_error) {
      frequency_.LoadFrequenti();
      EXPECT_EQ(log_.take(), Calls{"cFrequenza.LoadFrequenti() " + std::string(row.counts_error)});
      EXPECT_EQ(sum(&cFrequenza::GetFrqNum), 0);
    }
    if (row.averages_error) {
      frequency_.LoadFrequenzaMedia();
      EXPECT_EQ(log_.take(), Calls{"cFrequenza.LoadFrequenzaMedia() " + std::string(row.averages_error)});
      EXPECT_EQ(sum(&cFrequenza::GetFrqNumAVG), 0);
    }
    EXPECT_EQ(count_entry(0), (Entry{90, 11, 12}));
    EXPECT_EQ(frequency_.GetFrqTopTenAVG(0), 25.0F);
  }
}

TEST_F(FrequencyCountsTest, TheMostDatesThatCount) {
  scripted_->answers[all_dates] = dates_of(32767);
  frequency_.LoadFrequenzaMedia();
  EXPECT_EQ(frequency_.GetFrqNumAVG(90, 11), static_cast<float>(12.0 / 32767 * 100));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(FrequencyCountsTest, AnEmptyRangeReplacesWhatWasThere) {
  load_both();
  scripted_->default_answer = counts_of({});
  scripted_->answers[all_dates] = dates_of(0);
  frequency_.LoadFrequenti();
  frequency_.LoadFrequenzaMedia();
  EXPECT_EQ(sum(&cFrequenza::GetFrqNum) + sum(&cFrequenza::GetFrqNumAVG), 0);
  EXPECT_EQ(count_entry(0), (Entry{-1, -1, -1}));
  EXPECT_EQ(frequency_.GetFrqTopTenNumeroAVG(0), 0);
  EXPECT_EQ(frequency_.GetFrqTopTenAVG(0), 0.0F);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(FrequencyCountsTest, WithoutAConnector) {
  load_both();
  frequency_.ActiveConnection(Ref<DbConnector>());
  frequency_.LoadFrequenti();
  frequency_.LoadFrequenzaMedia();
  EXPECT_EQ(log_.take(), (Calls{"cFrequenza.LoadFrequenti() 91", "cFrequenza.LoadFrequenzaMedia() 91"}));
  EXPECT_EQ(sum(&cFrequenza::GetFrqNum) + sum(&cFrequenza::GetFrqNumAVG), 0);
  EXPECT_EQ(count_entry(0), (Entry{90, 11, 12}));
}

}  // namespace
}  // namespace vestara
