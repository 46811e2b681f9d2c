#include <gtest/gtest.h>

#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/archive/lotto.h"

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
using testing_support::LogCapture;
using testing_support::RecordingConnector;
using testing_support::RowsRef;
using testing_support::ScriptedConnector;
using testing_support::Table;

using Calls = std::vector<std::string>;
const Variant missing(Missing{});

// Numbers 5 and 12, both in one row, on BA.
constexpr const char* counting =
    "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
    "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN(5,12) "
    "Union All SELECT id from storico where estr2 IN(5,12) Union All SELECT id from storico where estr3 IN(5,12) Union "
    "All SELECT id from storico where estr4 IN(5,12) Union All SELECT id from storico where estr5 IN(5,12))  AS s "
    "GROUP BY s.id Having (Count(s.id) >=2)) s1) s2 on sto.id = s2.id WHERE (ruota='BA') ORDER BY sto.dtEstr DESC";
constexpr const char* dates =
    "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where estr1 "
    "IN(5,12)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(5,12) Union All SELECT "
    "id,dtestr,concorsoNumero,ruota from storico where estr3 IN(5,12) Union All SELECT id,dtestr,concorsoNumero,ruota "
    "from storico where estr4 IN(5,12) Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr5 "
    "IN(5,12)) AS s  WHERE (s.ruota='BA')GROUP BY s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 2) ORDER BY "
    "s.dtEstr DESC";
// Every draw, newest first.
constexpr const char* counting_all =
    "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto ORDER BY sto.dtEstr DESC";
constexpr const char* dates_all = "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s ORDER BY s.dtEstr DESC";

class LottoSearchTest : public testing::Test {
 protected:
  LottoSearchTest() {
    scripted_->state = 0;
    scripted_->default_answer.reset();
    answer_hits({2, 2});
    scripted_->answers[dates] = {{"dtEstr", "concorsoNumero"}, {{day(2026, 11, 15), 180}, {day(2026, 1, 2), 1}}};
    scripted_->answers[counting_all] = scripted_->answers[dates_all] = {
        {"concorsoNumero", "dtEstr"}, {{180, day(2026, 11, 15)}, {179, day(2026, 11, 13)}, {1, day(2026, 1, 2)}}};
    lotto_.ActiveConnection(recorder_);
    recorder_->calls.clear();
  }
  void answer_hits(const std::vector<Variant>& hits) {
    Table& table =
        scripted_->answers[counting] = {{"s2.id", "s2.numeriTrovati", "sto.dtEstr", "sto.ConcorsoNumero"}, {}};
    for (const auto& value : hits) table.rows.push_back({1, value, day(2026, 1, 2), 1});
  }
  RowsRef search() { return lotto_.LoadLottoEstr("5,12", 2, "BA"); }
  std::vector<int32_t> counters() const {
    return {lotto_.ContaSortiteTrovate(),
            lotto_.Ambate(),
            lotto_.Ambi(),
            lotto_.Terni(),
            lotto_.Quaterne(),
            lotto_.Cinquine()};
  }
  const std::vector<int32_t> zeros_ = std::vector<int32_t>(6, 0);

  LogCapture log_;
  testing_support::UnloadedWheels wheels_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cLotto lotto_;
};

TEST_F(LottoSearchTest, CountsTheHitsAndReturnsTheDraws) {
  const auto rows = search();
  EXPECT_EQ(recorder_->take(),
            (Calls{"OpenRecordset " + std::string(counting), "CloseRecordset", "OpenRecordset " + std::string(dates)}));
  EXPECT_EQ(counters(), (std::vector<int32_t>{2, 4, 2, 0, 0, 0}));
  ASSERT_TRUE(rows);
  EXPECT_TRUE(rows->is_open());
  EXPECT_EQ(rows->record_count(), 2);
  EXPECT_EQ(rows->column_name({0}), "dtEstr");
  EXPECT_EQ(rows->column_name({1}), "concorsoNumero");
  EXPECT_EQ(rows->value({1}), Variant(180));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoSearchTest, ResultStaysUsableDuringLaterSearches) {
  const auto first = search();
  first->move_next();
  const auto second = search();
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(first->value({1}), Variant(1));
  EXPECT_EQ(second->value({1}), Variant(180));
}

TEST_F(LottoSearchTest, CountersOfEveryKindOfRow) {
  const struct {
    const char* what;
    std::vector<Variant> hits;
    std::vector<int32_t> counters;
  } rows[] = {{"no rows", {}, {0, 0, 0, 0, 0, 0}},
              {"one hit each", {1, 1, 1}, {3, 3, 0, 0, 0, 0}},
              {"three hits: 3 ambate, 3 ambi, 1 terno", {3}, {1, 3, 3, 1, 0, 0}},
              {"five hits", {5}, {1, 5, 10, 10, 5, 1}},
              {"all kinds", {1, 2, 3, 4, 5}, {5, 15, 20, 15, 6, 1}},
              {"texts", {"1", "2"}, {2, 3, 1, 0, 0, 0}}};
  for (const auto& row : rows) {
    answer_hits(row.hits);
    EXPECT_TRUE(search()) << row.what;
    EXPECT_EQ(counters(), row.counters) << row.what;
  }
}

TEST_F(LottoSearchTest, RowThatFailsLeavesTheCountersAtNothing) {
  const struct {
    Variant hits;
    const char* entry;
  } rows[] = {{6, "cLotto.getEstrazioni() 9"}, {-1, "cLotto.getEstrazioni() 9"}, {Null{}, "cLotto.getEstrazioni() 94"}};
  for (const auto& row : rows) {
    search();
    answer_hits({2, row.hits, 2});
    EXPECT_TRUE(search()) << "the draws still come back";
    EXPECT_EQ(counters(), zeros_);
    EXPECT_EQ(log_.take(), Calls{row.entry});
    answer_hits({2});
  }
}

TEST_F(LottoSearchTest, WithoutNumbersAllDrawsAreListedAndTheFlagComesBackTrue) {
  search();
  recorder_->calls.clear();
  bool all_draws = false;
  const auto rows = lotto_.LoadLottoEstr("", 2, "BA", missing, missing, all_draws);
  EXPECT_TRUE(all_draws);
  EXPECT_EQ(recorder_->take(), (Calls{"OpenRecordset " + std::string(counting_all), "CloseRecordset",
                                      "OpenRecordset " + std::string(dates_all)}));
  EXPECT_EQ(counters(), (std::vector<int32_t>{3, 0, 0, 0, 0, 0}));
  ASSERT_TRUE(rows);
  EXPECT_EQ(rows->column_name({0}), "concorsoNumero");
  EXPECT_EQ(rows->column_name({1}), "dtEstr");
  EXPECT_EQ(rows->record_count(), 3);
  EXPECT_TRUE(lotto_.LoadLottoEstr());
}

TEST_F(LottoSearchTest, AllDrawsWithNumbersListsThemTooAndKeepsTheFlag) {
  lotto_.StatisticsIsActive(true);
  bool all_draws = true;
  EXPECT_TRUE(lotto_.LoadLottoEstr("5,12", 2, "BA", missing, missing, all_draws));
  EXPECT_TRUE(all_draws);
  EXPECT_EQ(recorder_->take().front(), "OpenRecordset " + std::string(counting_all));
  EXPECT_EQ(counters(), (std::vector<int32_t>{3, 0, 0, 0, 0, 0}));
  EXPECT_FALSE(lotto_.Statistiche()) << "all draws leave nothing to be counted";
}

TEST_F(LottoSearchTest, FlagOfASearchWithNumbersStaysFalse) {
  bool all_draws = false;
  lotto_.LoadLottoEstr("5,12", 2, "BA", missing, missing, all_draws);
  EXPECT_FALSE(all_draws);
}

TEST_F(LottoSearchTest, WheelsBoundsAndOrderOfTheStatements) {
  const automation::Date from = day(2026, 1, 2);
  const struct {
    const char* what;
    int16_t combination;
    const char* wheels;
    Variant from, to;
    bool all_wheels, oldest_first;
    const char *counting_end, *dates_end;
  } rows[] = {
      {"all wheels: no wheel condition", 0, "X,Y", Missing{}, Missing{}, true, false,
       " Having (Count(s.id) >=0)) s1) s2 on sto.id = s2.id ORDER BY sto.dtEstr DESC",
       ") AS s GROUP BY s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 0) ORDER BY s.dtEstr DESC"},
      {"no wheels: no wheel condition either", 1, "", Missing{}, Null{}, false, true,
       " Having (Count(s.id) >=1)) s1) s2 on sto.id = s2.id ORDER BY sto.dtEstr ASC",
       ") AS s GROUP BY s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 1) ORDER BY s.dtEstr ASC"},
      {"only blanks as wheels", 6, "  ", Missing{}, Missing{}, false, false,
       " Having (Count(s.id) >=6)) s1) s2 on sto.id = s2.id ORDER BY sto.dtEstr DESC",
       ") AS s GROUP BY s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 6) ORDER BY s.dtEstr DESC"},
      {"only an upper bound", -1, "", Null{}, from, false, false,
       " Having (Count(s.id) >=-1)) s1) s2 on sto.id = s2.id WHERE (sto.dtEstr <='2026-01-02') ORDER BY sto.dtEstr "
       "DESC",
       ") AS s  WHERE (s.dtEstr <='2026-01-02')GROUP BY s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= -1) ORDER "
       "BY s.dtEstr DESC"},
      {"two wheels, a blank before the second, a bad date", 2, "BA, CA", "x", Missing{}, false, false,
       " WHERE (sto.dtEstr >=NULL) AND (ruota='BA' OR ruota=' CA') ORDER BY sto.dtEstr DESC",
       " WHERE (s.dtEstr >=NULL) AND (s.ruota='BA' OR s.ruota=' CA')GROUP BY s.dtEstr,s.concorsoNumero,s.id "
       "Having(Count(S.id) >= 2) ORDER BY s.dtEstr DESC"},
      {"trailing comma", 2, "BA,", "2026-01-02", Missing{}, false, false,
       " WHERE (sto.dtEstr >='2026-01-02') AND (ruota='BA' OR ruota='') ORDER BY sto.dtEstr DESC",
       " WHERE (s.dtEstr >='2026-01-02') AND (s.ruota='BA' OR s.ruota='')GROUP BY s.dtEstr,s.concorsoNumero,s.id "
       "Having(Count(S.id) >= 2) ORDER BY s.dtEstr DESC"}};
  scripted_->default_answer = Table{};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    lotto_.LoadLottoEstr("90", row.combination, row.wheels, row.from, row.to, false, row.all_wheels, row.oldest_first);
    const Calls calls = recorder_->take();
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_TRUE(calls[0].ends_with(row.counting_end)) << calls[0];
    EXPECT_TRUE(calls[2].ends_with(row.dates_end)) << calls[2];
  }
}

TEST_F(LottoSearchTest, EveryFailureHasItsEntryAndTheNextCallWorks) {
  const char *count_failed = "cLotto.getEstrazioni() ", *dates_failed = "cLotto.getEstrazioniDate() ";
  const std::vector<int32_t> found{2, 4, 2, 0, 0, 0};
  const struct {
    const char* what;
    FailurePlan plan;
    bool draws;
    std::vector<int32_t> counters;
    Calls log;
  } rows[] = {
      {"count refused: the dates still come back", {1, Failure::refuses}, true, zeros_, {}},
      {"count", {1, Failure::raises_error}, true, zeros_, {count_failed + std::string("3001")}},
      {"count", {1, Failure::raises_exception}, true, zeros_, {count_failed + std::string("-2147467259")}},
      {"count hands over nothing", {1, Failure::hands_over_nothing}, true, zeros_, {count_failed + std::string("91")}},
      {"count's first call", {1, Failure::rows_raise, 0}, true, zeros_, {count_failed + std::string("3002")}},
      {"in the middle of the rows", {1, Failure::rows_raise, 5}, true, zeros_, {count_failed + std::string("3002")}},
      {"dates refused: the counters stay", {2, Failure::refuses}, false, found, {}},
      {"dates", {2, Failure::raises_error}, false, found, {dates_failed + std::string("3001")}},
      {"dates", {2, Failure::raises_exception}, false, found, {dates_failed + std::string("-2147467259")}},
      {"dates' rows", {2, Failure::rows_raise, 0}, false, found, {dates_failed + std::string("3002")}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    lotto_.ActiveConnection(make<FailingConnector>(recorder_, row.plan));
    EXPECT_EQ(static_cast<bool>(search()), row.draws);
    EXPECT_EQ(counters(), row.counters);
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(search());
    EXPECT_EQ(counters(), found);
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(LottoSearchTest, SuccessWithoutARecordSetIsNoResult) {
  lotto_.ActiveConnection(make<FailingConnector>(recorder_, FailurePlan{2, Failure::hands_over_nothing}));
  EXPECT_FALSE(search());
  EXPECT_EQ(counters()[1], 4);
}

TEST_F(LottoSearchTest, WithoutAConnectorBothPassesLog) {
  search();
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(search());
  EXPECT_EQ(counters(), zeros_);
  EXPECT_EQ(log_.take(), (Calls{"cLotto.getEstrazioni() 91", "cLotto.getEstrazioniDate() 91"}));
  bool all_draws = false;
  EXPECT_FALSE(lotto_.LoadLottoEstr("", 0, "", missing, missing, all_draws));
  EXPECT_TRUE(all_draws);
}

TEST_F(LottoSearchTest, MalformedNumbersAreRefusedByTheDatabaseAndNotLogged) {
  EXPECT_FALSE(lotto_.LoadLottoEstr("5,x,", 2, "BA"));
  EXPECT_EQ(counters(), zeros_);
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace vestara
