#include <gtest/gtest.h>

#include "tests/support/connectors.h"
#include "tests/support/log_capture.h"
#include "tests/support/repeated_row.h"
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
using testing_support::error_of;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;

using Calls = std::vector<std::string>;
const Variant missing(Missing{});

/// Answers the four statements of a search by how they begin.
class ArchiveDouble final : public DbConnector {
 public:
  int32_t cinquine = 0;  ///< in place of `hits` when it is not 0
  Table hits{{"s2.id", "s2.numeriTrovati", "sto.dtEstr", "sto.ConcorsoNumero"}, {}};
  Table draws{{"dtEstr", "concorsoNumero"}, {}};
  Table dates{{"storico.dtEstr"}, {}};
  Table gaps{{"R1.dtEstr", "R2.dtEstr", "R2.ruota", "R2.concorsoNumero", "R2.numeriTrovati"}, {}};

  const automation::ClassDescription& description() const override { return scripted_->description(); }
  int32_t ConnectionState() override { return 0; }
  bool OpenRecordset(testing_support::RowsRef& rows, std::string_view statement) override {
    const Table* table = &gaps;
    if (statement.starts_with("SELECT s2.id")) table = &hits;
    if (statement.starts_with("SELECT DISTINCT")) table = &draws;
    if (statement.starts_with("SELECT storico.")) table = &dates;
    const bool repeats = table == &hits && cinquine != 0;
    rows = repeats ? testing_support::RowsRef(make<testing_support::RepeatedRow>(5, cinquine))
                   : testing_support::RowsRef(make<testing_support::MemoryRecordSet>(*table));
    return true;
  }
  void CloseRecordset(testing_support::RowsRef& rows) override { scripted_->CloseRecordset(rows); }
  bool ExecuteSql(std::string_view) override { return false; }
  int32_t GetMaxId(std::string_view, std::string_view) override { return 0; }
  testing_support::RowsRef GetRecordset(std::string_view) override { return {}; }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}

 private:
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
};

class LottoStatisticsTest : public testing::Test {
 protected:
  LottoStatisticsTest() {
    for (const int32_t hits : {1, 2, 2, 5}) archive_->hits.rows.push_back({1, hits, day(2026, 1, 9), 2});
    archive_->draws.rows = {{day(2026, 1, 9), 2}, {day(2026, 1, 2), 1}};
    for (int32_t i = 1; i <= 7; ++i) archive_->dates.rows.push_back({day(2026, 1, i)});
    archive_->gaps.rows = {{day(2026, 1, 9), day(2026, 1, 9), "BA", 2, 2},
                           {day(2026, 1, 2), Null{}, Null{}, Null{}, Null{}}};
    lotto_.ActiveConnection(recorder_);
    lotto_.StatisticsIsActive(true);
    recorder_->calls.clear();
  }
  /// "5,12", ambo, on two wheels between two dates.
  void search(bool ascending = false) {
    lotto_.LoadLottoEstr("5,12", 2, "BA,NA", day(2026, 1, 2), "16/01/2026", false, false, ascending);
  }

  testing_support::LogCapture log_;
  testing_support::UnloadedWheels wheels_;
  Ref<ArchiveDouble> archive_ = make<ArchiveDouble>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(archive_);
  cLotto lotto_;
};

TEST_F(LottoStatisticsTest, EveryValueIsSet) {
  search();
  const auto statistics = lotto_.Statistiche();
  ASSERT_TRUE(statistics);
  EXPECT_EQ(statistics->ActiveConnection().get(), recorder_.get());
  EXPECT_EQ(statistics->EstrNumeriString(), "5,12");
  EXPECT_EQ(statistics->EstrCombinazione(), 2);
  EXPECT_EQ(statistics->DataDa(), Variant(day(2026, 1, 2)));
  EXPECT_EQ(statistics->DataA(), Variant("16/01/2026"));
  EXPECT_EQ(statistics->EstrNumeriGiocatiQta(), 2);
  EXPECT_EQ(statistics->EstrContaSortiteTrovate(), 4);
  EXPECT_EQ(statistics->EstrContaTutteLeEstrazioniSortiteNelleDate(), 2);
  EXPECT_EQ(statistics->EstrContaCombinazioniTrovate(), 10 + 12 + 10 + 5 + 1);
  EXPECT_EQ(statistics->EstrContaTutteLeEstrazioniNelleDate(), 7);
  EXPECT_EQ(statistics->EstrAmbate(), 10);
  EXPECT_EQ(statistics->EstrAmbi(), 12);
  EXPECT_EQ(statistics->EstrTerni(), 10);
  EXPECT_EQ(statistics->EstrQuaterne(), 5);
  EXPECT_EQ(statistics->EstrCinquine(), 1);
  EXPECT_EQ(statistics->EstrRuoteString(), "BA,NA");
  EXPECT_EQ(statistics->EstrRuoteGiocateQta(), 2) << "by the text of the wheels";
  EXPECT_EQ(statistics->Distanze()->ItemCount(), 2);
  EXPECT_DOUBLE_EQ(statistics->EstrCalcolaPercEffettiva(), 2.0 / 7 * 100);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoStatisticsTest, CountAndDistancesFollowTheTwoPasses) {
  for (const bool ascending : {false, true}) {
    search(ascending);
    const Calls calls = recorder_->take();
    ASSERT_EQ(calls.size(), 7U);
    EXPECT_TRUE(calls[0].ends_with(ascending ? "ORDER BY sto.dtEstr ASC" : "ORDER BY sto.dtEstr DESC"));
    EXPECT_EQ(calls[1], "CloseRecordset");
    EXPECT_TRUE(calls[2].starts_with("OpenRecordset SELECT DISTINCT s.dtEstr")) << calls[2];
    EXPECT_EQ(calls[3],
              "OpenRecordset SELECT storico.dtEstr From storico  WHERE (dtEstr >='2026-01-02') AND (dtEstr "
              "<='2026-01-16') AND (estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY storico.dtEstr");
    EXPECT_EQ(calls[4], "CloseRecordset");
    for (const char* piece :
         {"OpenRecordset SELECT R1.dtEstr, R2.dtEstr, R2.ruota", " estr1 IN(5,12)", "Having (Count(s.id) >=2)",
          " WHERE (sto.dtEstr >='2026-01-02') AND (sto.dtEstr <='2026-01-16') ORDER BY ",
          " <='2026-01-16') AND (ruota='BA' OR ruota='NA')Group by "})
      EXPECT_NE(calls[5].find(piece), std::string::npos) << calls[5];
    EXPECT_TRUE(calls[5].ends_with("ORDER by R1.dtEstr DESC")) << "newest first, whatever the search's own order";
    EXPECT_EQ(calls[6], "CloseRecordset");
    EXPECT_FALSE(lotto_.Statistiche()->Distanze()->ISSortASC());
  }
}

TEST_F(LottoStatisticsTest, FlagsAndWheelsOfTheDistances) {
  const struct {
    const char *what, *numbers, *wheels;
    bool all_wheels;
    int16_t played, wheels_played;
    const char *wheels_kept, *condition;
  } rows[] = {
      {"listed wheels", "5,12", "BA,NA", false, 2, 2, "BA,NA", " WHERE (ruota='BA' OR ruota='NA')Group by "},
      {"all wheels keep the list, and the distances their condition", "5", "BA,NA", true, 1, 2, "BA,NA",
       " WHERE (ruota='BA' OR ruota='NA')Group by "},
      {"no wheels", "5,12,", "", false, 3, 0, "", "s2.id Group by "},
      {"no numbers: still statistics, and no wheels", "", "BA", false, 0, 0, "", "s2.id Group by "},
      {"no numbers on all wheels: both flags drop the condition", "", "BA", true, 0, 1, "BA", "s2.id Group by "}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    lotto_.LoadLottoEstr(row.numbers, 1, row.wheels, missing, missing, false, row.all_wheels);
    const auto statistics = lotto_.Statistiche();
    ASSERT_TRUE(statistics);
    EXPECT_EQ(statistics->EstrNumeriString(), row.numbers);
    EXPECT_EQ(statistics->EstrNumeriGiocatiQta(), row.played);
    EXPECT_EQ(statistics->EstrRuoteString(), row.wheels_kept);
    EXPECT_EQ(statistics->EstrRuoteGiocateQta(), row.wheels_played);
    EXPECT_EQ(statistics->DataDa(), Variant(Null{}));
    EXPECT_EQ(statistics->DataA(), Variant(Null{}));
    const Calls calls = recorder_->take();
    ASSERT_EQ(calls.size(), 7U);
    EXPECT_NE(calls[5].find(row.condition), std::string::npos) << calls[5];
  }
}

TEST_F(LottoStatisticsTest, EverySearchReplacesTheObjectWhenSwitchedOn) {
  search();
  const auto first = lotto_.Statistiche();
  search();
  const auto second = lotto_.Statistiche();
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(first->EstrAmbate(), 10) << "the host keeps what it holds";
  lotto_.StatisticsIsActive(false);
  recorder_->calls.clear();
  archive_->hits.rows.clear();
  search();
  EXPECT_EQ(recorder_->calls.size(), 3U);
  EXPECT_EQ(lotto_.Statistiche().get(), second.get());
  EXPECT_EQ(second->EstrAmbate(), 10);
  lotto_.LoadLottoEstr("5", 1, "", missing, missing, true);
  EXPECT_EQ(lotto_.Statistiche().get(), second.get()) << "off, also for all draws";
  lotto_.StatisticsIsActive(true);
  lotto_.LoadLottoEstr("5", 1, "", missing, missing, true);
  EXPECT_FALSE(lotto_.Statistiche()) << "all draws leave nothing";
}

TEST_F(LottoStatisticsTest, WithoutAConnectorEveryPartLogsInTurn) {
  lotto_.ActiveConnection({});
  search();
  EXPECT_EQ(log_.take(), (Calls{"cLotto.getEstrazioni() 91", "cLotto.getEstrazioniDate() 91",
                                "cLotto.ContaEstrazioniStorico() 91", "cDistanze.LoadDistanzeDESC() 91"}));
  const auto statistics = lotto_.Statistiche();
  ASSERT_TRUE(statistics);
  EXPECT_EQ(statistics->EstrContaTutteLeEstrazioniNelleDate(), -1);
  EXPECT_EQ(statistics->EstrNumeriString(), "5,12");
  EXPECT_EQ(statistics->EstrRuoteString(), "BA,NA");
  EXPECT_EQ(statistics->Distanze()->ItemCount(), 0);
}

TEST_F(LottoStatisticsTest, FailuresOfTheCountAndTheDistancesAreTheirOwn) {
  const struct {
    FailurePlan plan;
    int32_t draws, items;
    Calls log;
  } rows[] = {{{3, Failure::refuses}, 0, 2, {}},
              {{3, Failure::raises_error}, -1, 2, {"cLotto.ContaEstrazioniStorico() 3001"}},
              {{4, Failure::refuses}, 7, 0, {}},
              {{4, Failure::raises_error}, 7, 0, {"cDistanze.LoadDistanzeDESC() 3001"}},
              {{4, Failure::hands_over_nothing}, 7, 0, {"cDistanze.LoadDistanzeDESC() 91"}},
              {{4, Failure::rows_raise, 0}, 7, 0, {"cDistanze.LoadDistanzeDESC() 3002"}}};
  for (const auto& row : rows) {
    lotto_.ActiveConnection(make<FailingConnector>(recorder_, row.plan));
    search();
    ASSERT_TRUE(lotto_.Statistiche());
    EXPECT_EQ(lotto_.Statistiche()->EstrContaTutteLeEstrazioniNelleDate(), row.draws);
    EXPECT_EQ(lotto_.Statistiche()->Distanze()->ItemCount(), row.items);
    EXPECT_EQ(lotto_.Statistiche()->EstrAmbate(), 10);
    EXPECT_EQ(log_.take(), row.log);
    search();
    EXPECT_EQ(lotto_.Statistiche()->Distanze()->ItemCount(), 2);
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(LottoStatisticsTest, AFailureOfTheFillReachesTheCaller) {
  const std::string too_many(32767, ',');  // 32768 empty pieces
  const auto fails = [&](const std::string& numbers, const std::string& wheels) {
    return error_of([&] { lotto_.LoadLottoEstr(numbers, 1, wheels, missing, missing, false, true); });
  };
  EXPECT_EQ(fails("5", too_many), 6);
  ASSERT_TRUE(lotto_.Statistiche()) << "as far as it was built";
  EXPECT_EQ(lotto_.Statistiche()->EstrCinquine(), 1) << "the wheels come last";
  EXPECT_EQ(lotto_.Statistiche()->Distanze()->ItemCount(), 0);
  EXPECT_EQ(log_.bytes(), "");
  EXPECT_EQ(fails(too_many, ""), 6);
  ASSERT_TRUE(lotto_.Statistiche());
  EXPECT_EQ(lotto_.Statistiche()->EstrCombinazione(), 0) << "the numbers come first";
  EXPECT_EQ(log_.take(), Calls{"cLotto.getEstrazioni() 6"}) << "the pass counts the numbers too";
  EXPECT_EQ(fails("5,12", "BA"), 0);
  EXPECT_EQ(lotto_.Statistiche()->Distanze()->ItemCount(), 2);
}

TEST_F(LottoStatisticsTest, CombinationsBeyond32BitsReachTheCaller) {
  constexpr int32_t most = 2147483647 / 31;  // a cinquina holds 5 + 10 + 10 + 5 + 1 combinations
  archive_->cinquine = most;
  search();
  EXPECT_EQ(lotto_.Statistiche()->EstrContaCombinazioniTrovate(), most * 31);
  archive_->cinquine = most + 1;
  EXPECT_EQ(error_of([&] { search(); }), 6);
  ASSERT_TRUE(lotto_.Statistiche());
  EXPECT_EQ(lotto_.Statistiche()->EstrContaSortiteTrovate(), most + 1) << "as far as it was built";
  EXPECT_EQ(lotto_.Statistiche()->EstrContaCombinazioniTrovate(), 0);
  EXPECT_EQ(lotto_.Cinquine(), most + 1) << "each counter by itself still fits";
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoStatisticsTest, StatisticheByName) {
  automation::Object& object = lotto_;
  const auto put = [&](Variant value) {
    std::vector<Variant> arguments{std::move(value)};
    return error_of([&] { object.call("Statistiche", automation::InvokeKind::putref, arguments); });
  };
  search();
  const auto found = lotto_.Statistiche();
  for (const Variant& other : {Variant(recorder_), Variant(make<cDistanze>()), Variant(make<cEstrazione>()), Variant(5),
                               Variant("x"), Variant(Null{})})
    EXPECT_EQ(put(other), 13) << testing::PrintToString(other);
  EXPECT_EQ(lotto_.Statistiche().get(), found.get());
  const auto own = make<cStatistiche>();
  EXPECT_EQ(put(own), 0);
  EXPECT_EQ(lotto_.Statistiche().get(), own.get());
  const Variant got = object.call("statistiche", automation::InvokeKind::get, {});
  EXPECT_EQ(got, Variant(Ref<automation::Object>(own)));
}

}  // namespace
}  // namespace vestara
