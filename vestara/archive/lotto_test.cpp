#include "vestara/archive/lotto.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::Empty;
using automation::make;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::error_of;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::LogCapture;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;
using testing_support::UnloadedWheels;

using Calls = std::vector<std::string>;
const Variant missing(Missing{});

class LottoTest : public testing::Test {
 protected:
  LottoTest() {
    scripted_->answers[std::string(testing_support::wheels_statement)] = testing_support::canonical_wheels();
    scripted_->default_answer.reset();
  }
  void connect() {
    lotto_.ActiveConnection(recorder_);
    recorder_->calls.clear();
  }
  /// A connector of unloaded wheels whose `plan` counts from the next statement.
  void connect_failing(FailurePlan plan) {
    scripted_->state = 0;
    lotto_.ActiveConnection(make<FailingConnector>(recorder_, plan));
    recorder_->calls.clear();
  }

  UnloadedWheels unloaded_;
  LogCapture log_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cLotto lotto_;
};

TEST_F(LottoTest, NewObject) {
  EXPECT_EQ(lotto_.DbType(), 2);
  EXPECT_FALSE(lotto_.StatisticsIsActive());
  EXPECT_FALSE(lotto_.Statistiche());
  EXPECT_EQ(lotto_.FileUpdate(), "");
  for (const int32_t counter : {lotto_.Ambate(), lotto_.Ambi(), lotto_.Terni(), lotto_.Quaterne(), lotto_.Cinquine(),
                                lotto_.ContaSortiteTrovate()})
    EXPECT_EQ(counter, 0);
}

TEST_F(LottoTest, PlainPropertiesKeepWhatTheyAreGiven) {
  for (const int16_t type : {int16_t{1}, int16_t{0}, int16_t{-7}}) {
    lotto_.DbType(type);
    EXPECT_EQ(lotto_.DbType(), type);
  }
  lotto_.FileUpdate("a/b.txt");
  EXPECT_EQ(lotto_.FileUpdate(), "a/b.txt");
  lotto_.StatisticsIsActive(true);
  EXPECT_TRUE(lotto_.StatisticsIsActive());
  EXPECT_FALSE(lotto_.Statistiche());
}

TEST_F(LottoTest, ReadingTheConnectionFailsAlsoAfterItWasSet) {
  EXPECT_EQ(error_of([&] { lotto_.ActiveConnection(); }), 91);
  connect();
  EXPECT_EQ(error_of([&] { lotto_.ActiveConnection(); }), 91);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoTest, OpenConnectionLoadsTheWheels) {
  lotto_.ActiveConnection(recorder_);
  EXPECT_EQ(recorder_->take(),
            (Calls{"ConnectionState", "OpenRecordset SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote",
                   "CloseRecordset"}));
  EXPECT_EQ(alias_of(11), "RN");
}

TEST_F(LottoTest, ConnectionThatIsNotOpenDoesNot) {
  for (const int32_t state : {0, 2, -1}) {
    scripted_->state = state;
    lotto_.ActiveConnection(recorder_);
    EXPECT_EQ(recorder_->take(), Calls{"ConnectionState"});
  }
  EXPECT_FALSE(wheel_tables()->RuoteEnumByAlias);
}

TEST_F(LottoTest, EmptyConnectionOnlyClearsIt) {
  connect();
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_EQ(recorder_->calls, Calls{});
  EXPECT_EQ(log_.bytes(), "");
  EXPECT_EQ(lotto_.ContaEstrazioniStorico(), -1);
  EXPECT_EQ(log_.take(), Calls{"cLotto.ContaEstrazioniStorico() 91"});
}

TEST_F(LottoTest, FailedPreloadKeepsTheConnection) {
  lotto_.ActiveConnection(make<FailingConnector>(recorder_, FailurePlan{.how = Failure::raises_error}));
  EXPECT_EQ(log_.take(), Calls{"mPrecarica.PreloadRuoteAlias() 3001"});
  EXPECT_EQ(lotto_.ContaEstrazioniStorico(), 0);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoTest, ContaEstrazioniStoricoCountsTheRows) {
  const Table three{.columns = {"dtEstr"}, .rows = {{day(2026, 1, 2)}, {day(2026, 1, 3)}, {day(2026, 1, 4)}}};
  const struct {
    const char* what;
    Variant from, to;
    int16_t wheel;
    const char* statement;
  } rows[] = {
      {"no arguments: every draw date with a number on any wheel", Missing{}, Missing{}, 12,
       "SELECT storico.dtEstr From storico  WHERE (estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY "
       "storico.dtEstr"},
      {"one wheel from a date", day(2026, 1, 2), Missing{}, 1,
       "SELECT storico.dtEstr From storico  WHERE (dtEstr >='2026-01-02') AND (ruota='BA') AND (estr1<>0 OR estr2<>0 "
       "OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY storico.dtEstr"},
      {"two dates", "02/01/2026", "2026-01-04", 12,
       "SELECT storico.dtEstr From storico  WHERE (dtEstr >='2026-01-02') AND (dtEstr <='2026-01-04') AND (estr1<>0 OR "
       "estr2<>0 OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY storico.dtEstr"},
      {"no date at all", "soon", "", 12,
       "SELECT storico.dtEstr From storico  WHERE (dtEstr >=NULL) AND (estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR "
       "estr5<>0) GROUP BY storico.dtEstr"}};
  connect();
  for (const auto& row : rows) {
    scripted_->answers[row.statement] = three;
    EXPECT_EQ(lotto_.ContaEstrazioniStorico(row.from, row.to, row.wheel), 3) << row.what;
    EXPECT_EQ(recorder_->take(), (Calls{"OpenRecordset " + std::string(row.statement), "CloseRecordset"}));
    scripted_->answers[row.statement] = Table{};
    EXPECT_EQ(lotto_.ContaEstrazioniStorico(row.from, row.to, row.wheel), 0) << row.what;
    EXPECT_EQ(recorder_->take().back(), "CloseRecordset");
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoTest, ContaEstrazioniStoricoOfAWheelOutsideTheTable) {
  connect();
  for (const int16_t wheel : {int16_t{13}, int16_t{0}, int16_t{-1}}) {
    EXPECT_EQ(lotto_.ContaEstrazioniStorico(missing, missing, wheel), -1);
    EXPECT_EQ(log_.take(), Calls{"cLotto.ContaEstrazioniStorico() 9"});
  }
  EXPECT_EQ(recorder_->calls, Calls{});
}

TEST_F(LottoTest, BoundsOfTheArchive) {
  const struct {
    const char* what;
    std::vector<std::vector<Variant>> rows;
    Variant expected;
  } rows[] = {{"date", {{day(2026, 11, 15)}}, "15/11/2026"},
              {"text as databases have it", {{"2026-11-15"}}, "15/11/2026"},
              {"the oldest draws", {{day(1871, 1, 7)}}, "07/01/1871"},
              {"empty archive: the aggregate row holds Null", {{Null{}}}, ""},
              {"no row at all", {}, Empty{}}};
  connect();
  for (const auto& row : rows) {
    scripted_->answers["SELECT max(dtEstr)as dmax FROM Storico"] = {{"dmax"}, row.rows};
    scripted_->answers["SELECT min(dtEstr)as dmin FROM Storico"] = {{"dmin"}, row.rows};
    EXPECT_EQ(lotto_.GetMaxDateStorico(), row.expected) << row.what;
    EXPECT_EQ(recorder_->take(), (Calls{"OpenRecordset SELECT max(dtEstr)as dmax FROM Storico", "CloseRecordset"}));
    EXPECT_EQ(lotto_.GetMinDateStorico(), row.expected) << row.what;
    EXPECT_EQ(recorder_->take(), (Calls{"OpenRecordset SELECT min(dtEstr)as dmin FROM Storico", "CloseRecordset"}));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoTest, EveryFailureHasItsValueAndItsEntryAndTheNextCallWorks) {
  const struct {
    const char* label;
    Variant failed, refused, good;
    std::function<Variant(cLotto&)> call;
  } members[] = {
      {"cLotto.ContaEstrazioniStorico() ", -1, 0, 1, [](cLotto& lotto) { return lotto.ContaEstrazioniStorico(); }},
      {"cLotto.GetMaxDateStorico() ", Empty{}, Empty{}, "15/11/2026", [](cLotto& l) { return l.GetMaxDateStorico(); }},
      {"cLotto.GetMinDateStorico() ", Empty{}, Empty{}, "15/11/2026", [](cLotto& l) { return l.GetMinDateStorico(); }}};
  const struct {
    FailurePlan plan;
    const char* number;  // of the one entry; nothing is logged without
  } failures[] = {{{.how = Failure::refuses}, nullptr},
                  {{.how = Failure::raises_error}, "3001"},
                  {{.how = Failure::raises_exception}, "-2147467259"},
                  {{.how = Failure::hands_over_nothing}, "91"},
                  {{.how = Failure::rows_raise, .good_calls = 0}, "3002"},
                  {{.how = Failure::rows_raise, .good_calls = 1}, "3002"}};
  scripted_->default_answer = Table{.columns = {"dmax", "dmin"}, .rows = {{day(2026, 11, 15), day(2026, 11, 15)}}};
  for (const auto& member : members) {
    for (const auto& failure : failures) {
      SCOPED_TRACE(member.label + testing::PrintToString(failure.plan.how));
      connect_failing(failure.plan);
      EXPECT_EQ(member.call(lotto_), failure.number ? member.failed : member.refused);
      EXPECT_EQ(log_.take(), failure.number ? Calls{std::string(member.label) + failure.number} : Calls{});
      EXPECT_EQ(member.call(lotto_), member.good);
      EXPECT_EQ(log_.bytes(), "");
    }
    lotto_.ActiveConnection(Ref<DbConnector>());
    EXPECT_EQ(member.call(lotto_), member.failed);
    EXPECT_EQ(log_.take(), Calls{member.label + std::string("91")});
  }
}

}  // namespace
}  // namespace vestara
