#include <gtest/gtest.h>

#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/archive/lotto.h"

namespace vestara {
namespace {

using automation::Empty;
using automation::InvokeKind;
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
using testing_support::moment;
using testing_support::outcome;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;

using Calls = std::vector<std::string>;
using Rows = std::vector<std::vector<Variant>>;

constexpr const char* select_one = "SELECT * FROM storico WHERE dtEstr ='2026-11-15'";
constexpr const char* minimum = "SELECT min(dtEstr)as dmin FROM Storico";

class LottoDrawsTest : public testing::Test {
 protected:
  LottoDrawsTest() {
    scripted_->state = 0;
    scripted_->default_answer.reset();
    lotto_.ActiveConnection(recorder_);
    recorder_->calls.clear();
  }
  void connect_failing(FailurePlan plan) {
    lotto_.ActiveConnection(make<FailingConnector>(recorder_, plan));
    recorder_->calls.clear();
  }
  /// Contest 180, wheel 1 holding 1 to 5, wheel 2 holding 6 to 10, and so on.
  static Ref<cEstrazione> whole_draw(const Variant& date) {
    auto draw = make<cEstrazione>();
    draw->DataEstrazione(date);
    draw->NumeroConcorso(180);
    for (int32_t wheel = 1; wheel <= 11; ++wheel)
      for (int32_t i = 1; i <= 5; ++i) draw->AddNumero(wheel, i + 1, std::to_string(5 * (wheel - 1) + i));
    return draw;
  }
  static Table draw_rows(Rows rows) {
    return {{"id", "dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5", "concorsoNumero"}, std::move(rows)};
  }

  const Variant date_ = day(2026, 11, 15);
  LogCapture log_;
  testing_support::CanonicalWheels wheels_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cLotto lotto_;
  Ref<cEstrazione> draw_ = whole_draw(date_);
};

constexpr const char* inserting =
    "ExecuteSql INSERT INTO storico (dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)VALUES(";

// What stores the whole draw of the fixture.
const Calls saving = [] {
  Calls calls{"BeginTrans", "ExecuteSql DELETE FROM storico WHERE dtEstr ='2026-11-15'"};
  for (const char* values : {"'2026-11-15','BA',1,2,3,4,5,180)", "'2026-11-15','CA',6,7,8,9,10,180)",
                             "'2026-11-15','FI',11,12,13,14,15,180)", "'2026-11-15','GE',16,17,18,19,20,180)",
                             "'2026-11-15','MI',21,22,23,24,25,180)", "'2026-11-15','NA',26,27,28,29,30,180)",
                             "'2026-11-15','PA',31,32,33,34,35,180)", "'2026-11-15','RM',36,37,38,39,40,180)",
                             "'2026-11-15','TO',41,42,43,44,45,180)", "'2026-11-15','VE',46,47,48,49,50,180)",
                             "'2026-11-15','RN',51,52,53,54,55,180)"})
    calls.push_back(std::string(inserting) + values);
  calls.emplace_back("CommitTrans");
  return calls;
}();
constexpr size_t first_insert = 2;

/// The first `count` calls of `saving`, then `last` where there is one.
Calls begun(size_t count, const char* last = nullptr) {
  Calls result(saving.begin(), saving.begin() + static_cast<std::ptrdiff_t>(count));
  if (last) result.emplace_back(last);
  return result;
}

TEST_F(LottoDrawsTest, DelEstrazioneGivesTheResultOfItsStatement) {
  for (const auto& [date, statement] : {std::pair{"15/11/2026", "DELETE FROM storico WHERE dtEstr ='2026-11-15'"},
                                        {"soon", "DELETE FROM storico WHERE dtEstr =NULL"}}) {
    EXPECT_TRUE(lotto_.DelEstrazione(date));
    EXPECT_EQ(recorder_->take(), Calls{std::string("ExecuteSql ") + statement});
    scripted_->refused.insert(statement);
    EXPECT_FALSE(lotto_.DelEstrazione(date));
    recorder_->calls.clear();
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoDrawsTest, DelEstrazioneFailsUnderItsOwnLabel) {
  for (const auto& [how, entry] : {std::pair{Failure::raises_error, "cLotto.DelEstrazione() 3001"},
                                   {Failure::raises_exception, "cLotto.DelEstrazione() -2147467259"}}) {
    connect_failing({.how = how});
    EXPECT_FALSE(lotto_.DelEstrazione(date_));
    EXPECT_EQ(log_.take(), Calls{entry});
    EXPECT_TRUE(lotto_.DelEstrazione(date_));
  }
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(lotto_.DelEstrazione(date_));
  EXPECT_EQ(log_.take(), Calls{"cLotto.DelEstrazione() 91"});
}

TEST_F(LottoDrawsTest, SalvaEstrazioneReplacesTheRowsOfTheDateInOneTransaction) {
  for (const Variant& date : {Variant(day(2026, 11, 15)), Variant("2026-11-15"), Variant(moment({2026, 11, 15, 20}))}) {
    EXPECT_TRUE(lotto_.SalvaEstrazione(whole_draw(date)));
    EXPECT_EQ(recorder_->take(), saving);
  }
  EXPECT_TRUE(lotto_.SalvaEstrazione(whole_draw("soon")));
  EXPECT_EQ(recorder_->calls.at(1), "ExecuteSql DELETE FROM storico WHERE dtEstr =NULL");
  EXPECT_EQ(recorder_->calls.at(2), std::string(inserting) + "NULL,'BA',1,2,3,4,5,180)");
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoDrawsTest, BeforeTheWheelsAreLoadedTheirAliasesAreEmpty) {
  const testing_support::UnloadedWheels unloaded;
  EXPECT_TRUE(lotto_.SalvaEstrazione(whole_draw(date_)));
  EXPECT_EQ(recorder_->calls.at(2), std::string(inserting) + "'2026-11-15','',1,2,3,4,5,180)");
}

TEST_F(LottoDrawsTest, SalvaEstrazioneOfAnEmptyWheelIsRolledBack) {
  const auto draw = whole_draw(date_);
  for (int32_t position = 2; position <= 6; ++position) draw->AddNumero(3, position, "");
  const std::string refused = std::string(inserting) + "'2026-11-15','FI',,180)";
  scripted_->refused.insert(refused.substr(std::string_view("ExecuteSql ").size()));
  EXPECT_FALSE(lotto_.SalvaEstrazione(draw));
  Calls expected = begun(4);
  expected.push_back(refused);
  expected.emplace_back("RollbackTrans");
  EXPECT_EQ(recorder_->take(), expected);
  EXPECT_EQ(log_.take(), Calls{"cLotto.SalvaEstrazione() 0"});
}

TEST_F(LottoDrawsTest, SalvaEstrazioneFailingAtEveryPointAndTheNextCallWorks) {
  const struct {
    const char* what;
    FailurePlan plan;
    Calls calls, log;  // the failing call itself does not arrive
  } rows[] = {
      {"begin", {1, Failure::raises_error}, {}, {"cLotto.SalvaEstrazione() 3001"}},
      {"begin", {1, Failure::raises_exception}, {}, {"cLotto.SalvaEstrazione() -2147467259"}},
      {"delete refused: neither commit nor rollback nor entry", {2, Failure::refuses}, begun(1), {}},
      {"delete logs for itself", {2, Failure::raises_error}, begun(1), {"cLotto.DelEstrazione() 3001"}},
      {"delete", {2, Failure::raises_exception}, begun(1), {"cLotto.DelEstrazione() -2147467259"}},
      {"first insert raises: no rollback", {3, Failure::raises_error}, begun(2), {"cLotto.SalvaEstrazione() 3001"}},
      {"last insert", {13, Failure::raises_exception}, begun(12), {"cLotto.SalvaEstrazione() -2147467259"}},
      {"commit", {14, Failure::raises_error}, begun(13), {"cLotto.SalvaEstrazione() 3001"}},
      {"commit", {14, Failure::raises_exception}, begun(13), {"cLotto.SalvaEstrazione() -2147467259"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    connect_failing(row.plan);
    EXPECT_FALSE(lotto_.SalvaEstrazione(draw_));
    EXPECT_EQ(recorder_->take(), row.calls);
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(lotto_.SalvaEstrazione(draw_));
    EXPECT_EQ(recorder_->take(), saving);
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(LottoDrawsTest, EachRefusedInsertIsRolledBackAndLoggedWithoutAnError) {
  for (int32_t wheel = 0; wheel < 11; ++wheel) {
    SCOPED_TRACE(wheel + 1);
    const size_t place = first_insert + static_cast<size_t>(wheel);
    connect_failing({.fail_statement = static_cast<int32_t>(place) + 1, .how = Failure::refuses});
    EXPECT_FALSE(lotto_.SalvaEstrazione(draw_));
    EXPECT_EQ(recorder_->take(), begun(place, "RollbackTrans"));
    ASSERT_EQ(log_.entries().size(), 1U);
    EXPECT_EQ(log_.entries()[0].description, "");
    EXPECT_EQ(log_.take(), Calls{"cLotto.SalvaEstrazione() 0"});
    EXPECT_TRUE(lotto_.SalvaEstrazione(draw_));
    EXPECT_EQ(recorder_->take(), saving);
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(LottoDrawsTest, RollbackThatRaisesIsTheOneEntry) {
  const auto refusing = make<FailingConnector>(recorder_, FailurePlan{3, Failure::refuses});
  lotto_.ActiveConnection(make<FailingConnector>(refusing, FailurePlan{4, Failure::raises_error}));
  recorder_->calls.clear();
  EXPECT_FALSE(lotto_.SalvaEstrazione(draw_));
  EXPECT_EQ(recorder_->take(), begun(2));
  EXPECT_EQ(log_.take(), Calls{"cLotto.SalvaEstrazione() 3001"});
}

TEST_F(LottoDrawsTest, SalvaEstrazioneWithoutAConnectorOrADraw) {
  EXPECT_FALSE(lotto_.SalvaEstrazione({}));
  EXPECT_EQ(recorder_->calls, Calls{});
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(lotto_.SalvaEstrazione(draw_));
  EXPECT_EQ(log_.take(), (Calls{"cLotto.SalvaEstrazione() 91", "cLotto.SalvaEstrazione() 91"}));
}

TEST_F(LottoDrawsTest, GetEstrazioneDaDataReadsEveryRow) {
  scripted_->answers[select_one] = draw_rows({{41, date_, "RN", 5, 12, 33, 45, 78, 180},
                                              {42, date_, "ba", "1", "2", 3.0, int16_t{4}, 90, Null{}},
                                              {"43", date_, "VE", 0, 0, 0, 0, 0, 7}});
  for (const Variant& asked : {date_, Variant("15/11/2026"), Variant(moment({2026, 11, 15, 20, 30}))}) {
    const auto draw = lotto_.GetEstrazioneDaData(asked);
    ASSERT_TRUE(draw);
    EXPECT_EQ(recorder_->take(), (Calls{std::string("OpenRecordset ") + select_one, "CloseRecordset"}));
    EXPECT_EQ(draw->DataEstrazione(), asked) << "the argument itself";
    EXPECT_EQ(draw->NumeroConcorso(), 180) << "of the first row";
    EXPECT_EQ(draw->GetNumero(11, 1) + "…" + draw->GetNumero(11, 5), "5…78") << "every number in its place";
    const Calls numbers{draw->GetNumeri(11), draw->GetNumeri(1), draw->GetNumeri(10), draw->GetNumeri(2)};
    EXPECT_EQ(numbers, (Calls{"5,12,33,45,78", "1,2,3,4,90", "0,0,0,0,0", ""}));
    const int32_t keys[] = {draw->GetIdStorico(11), draw->GetIdStorico(1), draw->GetIdStorico(10)};
    EXPECT_EQ(std::vector(std::begin(keys), std::end(keys)), (std::vector{41, 42, 43}));
  }
  EXPECT_NE(lotto_.GetEstrazioneDaData(date_), lotto_.GetEstrazioneDaData(date_)) << "a new record every time";
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoDrawsTest, RowsThatMakeNoDraw) {
  const std::vector<Variant> good{41, date_, "BA", 1, 2, 3, 4, 5, 180};
  const struct {
    const char* what;
    Rows rows;
    const char* entry;
  } rows[] = {{"no row", {}, "cLotto.GetEstrazioneDaData() 91"},
              {"unknown alias", {good, {42, date_, "XX", 1, 2, 3, 4, 5, 180}}, "cLotto.GetEstrazioneDaData() 5"},
              {"alias with a blank", {{42, date_, "BA ", 1, 2, 3, 4, 5, 180}}, "cLotto.GetEstrazioneDaData() 5"},
              {"Null alias", {{42, date_, Null{}, 1, 2, 3, 4, 5, 180}}, "cLotto.GetEstrazioneDaData() 94"},
              {"Null number", {good, {42, date_, "CA", 1, 2, Null{}, 4, 5, 180}}, "cLotto.GetEstrazioneDaData() 94"},
              {"Null key", {{Null{}, date_, "BA", 1, 2, 3, 4, 5, 180}}, "cLotto.GetEstrazioneDaData() 94"},
              {"Null contest", {{41, date_, "BA", 1, 2, 3, 4, 5, Null{}}}, "cLotto.GetEstrazioneDaData() 94"},
              {"contest of 17 bits", {{41, date_, "BA", 1, 2, 3, 4, 5, 40000}}, "cLotto.GetEstrazioneDaData() 6"}};
  for (const auto& row : rows) {
    scripted_->answers[select_one] = draw_rows(row.rows);
    EXPECT_FALSE(lotto_.GetEstrazioneDaData(date_)) << row.what;
    EXPECT_EQ(recorder_->take(), Calls{std::string("OpenRecordset ") + select_one}) << "not closed: " << row.what;
    EXPECT_EQ(log_.take(), Calls{row.entry}) << row.what;
  }
  scripted_->answers[select_one] = draw_rows({good});
  EXPECT_TRUE(lotto_.GetEstrazioneDaData(date_));
  testing_support::UnloadedWheels::reset();
  EXPECT_FALSE(lotto_.GetEstrazioneDaData(date_));
  EXPECT_EQ(log_.take(), Calls{"cLotto.GetEstrazioneDaData() 91"});
}

TEST_F(LottoDrawsTest, GetEstrazioneDaDataFailingAndTheNextCallWorks) {
  scripted_->answers[select_one] = draw_rows({{41, date_, "BA", 1, 2, 3, 4, 5, 180}});
  const struct {
    FailurePlan plan;
    Calls log;
  } rows[] = {{{.how = Failure::refuses}, {}},
              {{.how = Failure::raises_error}, {"cLotto.GetEstrazioneDaData() 3001"}},
              {{.how = Failure::raises_exception}, {"cLotto.GetEstrazioneDaData() -2147467259"}},
              {{.how = Failure::hands_over_nothing}, {"cLotto.GetEstrazioneDaData() 91"}},
              {{.how = Failure::rows_raise, .good_calls = 0}, {"cLotto.GetEstrazioneDaData() 3002"}},
              {{.how = Failure::rows_raise, .good_calls = 8}, {"cLotto.GetEstrazioneDaData() 3002"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.plan.how));
    connect_failing(row.plan);
    EXPECT_FALSE(lotto_.GetEstrazioneDaData(date_));
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(lotto_.GetEstrazioneDaData(date_));
    EXPECT_EQ(log_.bytes(), "");
  }
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(lotto_.GetEstrazioneDaData(date_));
  EXPECT_EQ(log_.take(), Calls{"cLotto.GetEstrazioneDaData() 91"});
}

class DrawsBackTest : public LottoDrawsTest {
 protected:
  DrawsBackTest() {
    scripted_->answers[minimum] = {{"dmin"}, {{day(1871, 1, 7)}}};
    list(from_oldest, {{180, day(2026, 11, 15)}, {179, "2026-11-13"}, {1, moment({2026, 1, 2, 20})}});
  }
  /// Answers both passes of a listing with this WHERE part.
  void list(const std::string& where, Rows rows) {
    const Table table{{"concorsoNumero", "dtEstr"}, std::move(rows)};
    scripted_->answers[counting(where)] = scripted_->answers[dates(where)] = table;
  }
  static std::string on(std::string where, const std::string& qualifier) {
    for (size_t at = 0; (at = where.find("dtEstr", at)) != std::string::npos; at += qualifier.size() + 6)
      where.insert(at, qualifier);
    return where;
  }
  static std::string counting(const std::string& where) {
    return "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto WHERE " + on(where, "sto.") +
           "ORDER BY sto.dtEstr DESC";
  }
  static std::string dates(const std::string& where) {
    return "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s WHERE " + on(where, "s.") +
           "ORDER BY s.dtEstr DESC";
  }

  static constexpr const char* from_oldest = "(dtEstr >='1871-01-07')";
  static constexpr const char* no_current_row = "cLotto.GetDataEstrazioneDaConta() 3021";
};

TEST_F(DrawsBackTest, CountsFromTheNewestDraw) {
  const struct {
    const char* what;
    int32_t draws_back;
    Variant date;
    Calls log;
  } rows[] = {{"the newest", 1, day(2026, 11, 15), {}},
              {"the one before; a text becomes a date", 2, day(2026, 11, 13), {}},
              {"the oldest, with its time of day", 3, moment({2026, 1, 2, 20}), {}},
              {"one more than there are", 4, Empty{}, {no_current_row}},
              {"many more", 1000000, Empty{}, {no_current_row}},
              {"before the newest", 0, Empty{}, {no_current_row}},
              {"long before", -7, Empty{}, {no_current_row}},
              {"before the smallest", INT32_MIN, Empty{}, {"cLotto.GetDataEstrazioneDaConta() 6"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(row.draws_back), row.date) << row.what;
    EXPECT_EQ(log_.take(), row.log) << row.what;
    EXPECT_EQ(recorder_->take(), (Calls{std::string("OpenRecordset ") + minimum, "CloseRecordset",
                                        "OpenRecordset " + counting(from_oldest), "CloseRecordset",
                                        "OpenRecordset " + dates(from_oldest), "CloseRecordset"}));
  }
}

TEST_F(DrawsBackTest, LastDateBoundsTheListing) {
  const struct {
    const char* what;
    Variant now;
    const char* where;
  } rows[] = {{"date", day(2026, 11, 13), "(dtEstr >='1871-01-07') AND (dtEstr <='2026-11-13')"},
              {"text", "13/11/2026", "(dtEstr >='1871-01-07') AND (dtEstr <='2026-11-13')"},
              {"time of day", moment({2026, 11, 13, 8}), "(dtEstr >='1871-01-07') AND (dtEstr <='2026-11-13')"},
              {"not a date", "soon", "(dtEstr >='1871-01-07') AND (dtEstr <=NULL)"},
              {"Empty", Empty{}, "(dtEstr >='1871-01-07') AND (dtEstr <=NULL)"},
              {"Null: no bound", Null{}, from_oldest},
              {"missing: no bound, today included", Missing{}, from_oldest}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    list(row.where, {{179, day(2026, 11, 13)}});
    EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(1, row.now), Variant(day(2026, 11, 13)));
    EXPECT_EQ(recorder_->take().end()[-2], "OpenRecordset " + dates(row.where));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(DrawsBackTest, RowWithoutADate) {
  list(from_oldest, {{1, Null{}}});
  EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(1), Variant(Empty{}));
  EXPECT_EQ(log_.take(), Calls{"cLotto.GetDataEstrazioneDaConta() 94"});
}

TEST_F(DrawsBackTest, EmptyArchiveHasNoFirstDate) {
  scripted_->answers[minimum] = {{"dmin"}, {{Null{}}}};
  list("(dtEstr >=NULL)", {});
  for (const int32_t draws_back : {1, 2, 0}) {
    EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(draws_back), Variant(Empty{}));
    EXPECT_EQ(log_.take(), Calls{no_current_row});
  }
}

TEST_F(DrawsBackTest, ReplacesTheLastSearch) {
  scripted_->default_answer = Table{{"s2.numeriTrovati", "dtEstr"}, {{3, day(2026, 1, 2)}}};
  ASSERT_TRUE(lotto_.LoadLottoEstr("5,12,33", 2, "BA"));
  ASSERT_EQ(lotto_.Terni(), 1);
  ASSERT_EQ(lotto_.ContaSortiteTrovate(), 1);
  scripted_->default_answer.reset();
  lotto_.GetDataEstrazioneDaConta(2);
  for (const int32_t counter : {lotto_.Ambate(), lotto_.Ambi(), lotto_.Terni(), lotto_.Quaterne(), lotto_.Cinquine()})
    EXPECT_EQ(counter, 0);
  EXPECT_EQ(lotto_.ContaSortiteTrovate(), 3);
  lotto_.GetDataEstrazioneDaConta(99);
  EXPECT_EQ(lotto_.ContaSortiteTrovate(), 3) << "also when there is no such draw";
}

TEST_F(DrawsBackTest, EveryFailureHasItsEntryAndTheNextCallWorks) {
  const struct {
    const char* what;
    FailurePlan plan;
    bool found;
    Calls log;
  } rows[] = {{"first date refused: no row satisfies the bound", {1, Failure::refuses}, false, {no_current_row}},
              {"first date", {1, Failure::raises_error}, false, {"cLotto.GetMinDateStorico() 3001", no_current_row}},
              {"count refused", {2, Failure::refuses}, true, {}},
              {"count", {2, Failure::raises_error}, true, {"cLotto.getEstrazioni() 3001"}},
              {"dates refused", {3, Failure::refuses}, false, {}},
              {"dates", {3, Failure::raises_error}, false, {"cLotto.getEstrazioniDate() 3001"}},
              {"dates", {3, Failure::raises_exception}, false, {"cLotto.getEstrazioniDate() -2147467259"}},
              {"success without rows", {3, Failure::hands_over_nothing}, false, {}},
              {"dates' rows, counted", {3, Failure::rows_raise, 0}, false, {"cLotto.getEstrazioniDate() 3002"}},
              {"dates' rows, moved", {3, Failure::rows_raise, 1}, false, {"cLotto.GetDataEstrazioneDaConta() 3002"}}};
  list("(dtEstr >=NULL)", {});
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    connect_failing(row.plan);
    EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(2), row.found ? Variant(day(2026, 11, 13)) : Variant(Empty{}));
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(1), Variant(day(2026, 11, 15)));
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(DrawsBackTest, WithoutAConnectorTheInnerMembersLog) {
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(1), Variant(Empty{}));
  EXPECT_EQ(log_.take(),
            (Calls{"cLotto.GetMinDateStorico() 91", "cLotto.getEstrazioni() 91", "cLotto.getEstrazioniDate() 91"}));
}

TEST_F(DrawsBackTest, LateBound) {
  scripted_->answers[select_one] = draw_rows({{41, day(2026, 11, 15), "BA", 1, 2, 3, 4, 5, 180}});
  list("(dtEstr >='1871-01-07') AND (dtEstr <='2026-01-02')", {{1, day(2026, 1, 2)}});
  const struct {
    const char* member;
    std::vector<Variant> arguments;
    std::vector<std::string_view> names;
    const char* expected;
  } calls[] = {{"GetDataEstrazioneDaConta", {1}, {}, "Date 46341"},
               {"getdataestrazionedaconta", {"2"}, {}, "Date 46339"},
               {"GetDataEstrazioneDaConta", {1, "02/01/2026"}, {}, "Date 46024"},
               {"GetDataEstrazioneDaConta", {day(2026, 1, 2), 1}, {"daDataNow", "nEstrazioniPrec"}, "Date 46024"},
               {"GetDataEstrazioneDaConta", {}, {}, "error 449"},
               {"GetDataEstrazioneDaConta", {"x"}, {}, "error 13"},
               {"SalvaEstrazione", {draw_}, {}, "True"},
               {"SalvaEstrazione", {draw_}, {"c_estr"}, "True"},
               {"SalvaEstrazione", {scripted_}, {}, "error 13"},
               {"SalvaEstrazione", {5}, {}, "error 13"},
               {"SalvaEstrazione", {}, {}, "error 449"},
               {"DelEstrazione", {"15/11/2026"}, {}, "True"},
               {"DelEstrazione", {"soon"}, {"dt"}, "True"},
               {"DelEstrazione", {}, {}, "error 449"},
               {"GetEstrazioneDaData", {day(2026, 11, 15)}, {}, "Object"},
               {"GetEstrazioneDaData", {"15/11/2026"}, {"dtEstr"}, "Object"},
               {"GetEstrazioneDaData", {"16/11/2026"}, {}, "Nothing"},
               {"GetEstrazioneDaData", {}, {}, "error 449"}};
  for (const auto& call : calls) {
    auto arguments = call.arguments;
    EXPECT_EQ(outcome([&] { return lotto_.call(call.member, InvokeKind::method, arguments, call.names); }),
              call.expected)
        << call.member;
    EXPECT_EQ(arguments, call.arguments) << call.member << " changes no argument";
  }
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace vestara
