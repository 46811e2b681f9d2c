#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"
#include "tests/support/connectors.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/archive/lotto.h"

namespace conformance {
namespace {

using automation::Empty;
using automation::make;
using automation::Missing;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::moment;
using vestara::cEstrazione;
using Lines = std::vector<std::string>;

class DrawsTest : public BackEnd {
 protected:
  DrawsTest() { lotto_.ActiveConnection(connector_); }

  /// Wheel 1 holds `first` and the four numbers after it, wheel 2 the next five, and so on.
  static Ref<cEstrazione> draw_of(const Variant& date, int16_t contest, int32_t first) {
    auto draw = make<cEstrazione>();
    draw->DataEstrazione(date);
    draw->NumeroConcorso(contest);
    for (int32_t i = 0; i < 55; ++i) draw->AddNumero(i / 5 + 1, i % 5 + 2, std::to_string(first + i));
    return draw;
  }
  bool save(const Variant& date, int16_t contest, int32_t first = 1) {
    return lotto_.SalvaEstrazione(draw_of(date, contest, first));
  }
  Lines archive() { return rows("SELECT * FROM storico ORDER BY id"); }
  void add(const std::string& values) {
    ASSERT_TRUE(
        execute("INSERT INTO storico(dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)VALUES(" + values + ")"))
        << connector_->LastError();
  }

  testing_support::LogCapture log_;
  vestara::cLotto lotto_;
};

INSTANTIATE_TEST_SUITE_P(Engines, DrawsTest, engines(), engine_name);

TEST_P(DrawsTest, ASavedDrawComesBackWhole) {
  ASSERT_TRUE(save(day(2005, 2, 9), 17, 30));
  EXPECT_EQ(one("SELECT count(*) FROM storico"), "11");
  for (const Variant& asked : {Variant(day(2005, 2, 9)), Variant("09/02/2005"), Variant(moment({2005, 2, 9, 20}))}) {
    const auto draw = lotto_.GetEstrazioneDaData(asked);
    ASSERT_TRUE(draw);
    EXPECT_EQ(draw->DataEstrazione(), asked);
    EXPECT_EQ(draw->NumeroConcorso(), 17);
    for (int32_t i = 0; i < 55; ++i) EXPECT_EQ(draw->GetNumero(i / 5 + 1, i % 5 + 1), std::to_string(30 + i));
    for (int32_t wheel = 1; wheel <= 11; ++wheel)
      EXPECT_EQ(std::to_string(draw->GetIdStorico(wheel)),
                one("SELECT id FROM storico WHERE estr1=" + draw->GetNumero(wheel, 1)));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_P(DrawsTest, SavingReplacesEveryRowOfTheDateAndNoOther) {
  ASSERT_TRUE(save(day(2005, 2, 9), 17));
  ASSERT_TRUE(save(day(2005, 2, 12), 18));
  add("'2005-02-09','BA',1,2,3,4,5,99");
  const Lines others = rows("SELECT * FROM storico WHERE concorsoNumero=18 ORDER BY id");
  ASSERT_TRUE(save("09/02/2005", 20, 36));
  EXPECT_EQ(rows("SELECT DISTINCT concorsoNumero FROM storico WHERE dtEstr ='2005-02-09'"), Lines{"20"});
  EXPECT_EQ(rows("SELECT ruota,estr1,estr5 FROM storico WHERE dtEstr ='2005-02-09' ORDER BY estr1"),
            (Lines{"BA 36 40", "CA 41 45", "FI 46 50", "GE 51 55", "MI 56 60", "NA 61 65", "PA 66 70", "RM 71 75",
                   "TO 76 80", "VE 81 85", "RN 86 90"}));
  EXPECT_EQ(rows("SELECT * FROM storico WHERE concorsoNumero=18 ORDER BY id"), others);
}

TEST_P(DrawsTest, AWheelWithoutFiveNumbersLeavesTheArchiveAsItWas) {
  ASSERT_TRUE(save(day(2005, 2, 9), 17));
  const Lines before = archive();
  for (const int32_t wheel : {1, 6, 11}) {
    const auto draw = draw_of(day(2005, 2, 9), 18, 20);
    draw->AddNumero(wheel, 4, "");
    EXPECT_FALSE(lotto_.SalvaEstrazione(draw));
    for (int32_t position = 2; position <= 6; ++position) draw->AddNumero(wheel, position, "");
    EXPECT_FALSE(lotto_.SalvaEstrazione(draw)) << "an empty wheel";
    EXPECT_EQ(archive(), before) << "keys included";
    EXPECT_EQ(log_.take(), (Lines{"cLotto.SalvaEstrazione() 0", "cLotto.SalvaEstrazione() 0"}));
  }
  EXPECT_TRUE(save(day(2005, 2, 9), 18, 20)) << "no transaction was left open";
  EXPECT_EQ(one("SELECT DISTINCT concorsoNumero FROM storico"), "18");
}

TEST_P(DrawsTest, AFailureOfAnyStatementOfASaveLeavesTheArchiveAsItWas) {
  using testing_support::FailingConnector;
  using testing_support::Failure;
  ASSERT_TRUE(save(day(2005, 2, 9), 17, 30));
  const Lines before = archive();
  const auto reader = another();
  // The assignment reads the wheels first: then come the begin, the delete, eleven inserts and the commit.
  constexpr int32_t begin = 2;
  constexpr int32_t commit = 15;
  for (const Failure how : {Failure::refuses, Failure::raises_error}) {
    for (int32_t statement = begin; statement <= commit; ++statement) {
      SCOPED_TRACE("statement " + std::to_string(statement));
      lotto_.ActiveConnection(make<FailingConnector>(connector_, testing_support::FailurePlan{statement, how}));
      EXPECT_FALSE(save(day(2005, 2, 9), 18, 1));
      EXPECT_EQ(reader->GetMaxId("storico", "concorsoNumero"), 17);
      // What the failure left open is the host's to end: the next transaction does not begin over it.
      connector_->RollbackTrans();
      EXPECT_EQ(archive(), before);
    }
  }
  lotto_.ActiveConnection(make<FailingConnector>(connector_, testing_support::FailurePlan{commit + 1}));
  EXPECT_TRUE(save(day(2005, 2, 9), 18, 1)) << "behind the commit there is nothing to fail";
  EXPECT_EQ(reader->GetMaxId("storico", "concorsoNumero"), 18);
}

TEST_P(DrawsTest, DeletingADate) {
  ASSERT_TRUE(save(day(2005, 2, 9), 17));
  ASSERT_TRUE(save(day(2005, 2, 12), 18));
  EXPECT_TRUE(lotto_.DelEstrazione("10/02/2005")) << "a date without rows";
  EXPECT_TRUE(lotto_.DelEstrazione("no date"));
  EXPECT_EQ(one("SELECT count(*) FROM storico"), "22");
  EXPECT_TRUE(lotto_.DelEstrazione(day(2005, 2, 9)));
  EXPECT_EQ(rows("SELECT DISTINCT concorsoNumero FROM storico"), Lines{"18"});
  EXPECT_FALSE(lotto_.GetEstrazioneDaData(day(2005, 2, 9)));
  EXPECT_EQ(log_.take(), Lines{"cLotto.GetEstrazioneDaData() 91"});
}

TEST_P(DrawsTest, RowsThatMakeNoDraw) {
  const struct {
    const char *values, *entry;
  } cases[] = {{"'2005-02-09','XX',1,2,3,4,5,1", "cLotto.GetEstrazioneDaData() 5"},
               {"'2005-02-09','BA',1,2,NULL,4,5,1", "cLotto.GetEstrazioneDaData() 94"},
               {"'2005-02-09','BA',1,2,3,4,5,NULL", "cLotto.GetEstrazioneDaData() 94"}};
  for (const auto& row : cases) {
    ASSERT_TRUE(execute("DELETE FROM storico"));
    add(row.values);
    EXPECT_FALSE(lotto_.GetEstrazioneDaData(day(2005, 2, 9))) << row.values;
    EXPECT_EQ(log_.take(), Lines{row.entry}) << row.values;
  }
}

TEST_P(DrawsTest, DrawsAreCountedBackwardsByContest) {
  ASSERT_TRUE(save(day(1871, 1, 7), 1));
  ASSERT_TRUE(save(day(2005, 2, 9), 17));
  add("'2005-02-09','BA',1,2,3,4,5,99");
  ASSERT_TRUE(save(day(2005, 2, 12), 18));
  const struct {
    const char* what;
    int32_t draws_back;
    Variant now, date;
  } cases[] = {{"the newest", 1, Missing{}, day(2005, 2, 12)},
               {"first of two contests on one date", 2, Missing{}, day(2005, 2, 9)},
               {"second of them", 3, Missing{}, day(2005, 2, 9)},
               {"the oldest", 4, Missing{}, day(1871, 1, 7)},
               {"up to a date", 1, day(2005, 2, 11), day(2005, 2, 9)},
               {"that date included", 1, "12/02/2005", day(2005, 2, 12)},
               {"three before it", 3, "11/02/2005", day(1871, 1, 7)}};
  for (const auto& row : cases)
    EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(row.draws_back, row.now), row.date) << row.what;
  EXPECT_EQ(lotto_.ContaSortiteTrovate(), 3);
  EXPECT_EQ(log_.bytes(), "");
  for (const int32_t draws_back : {0, 5, -1, 100}) {
    EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(draws_back), Variant(Empty{})) << draws_back;
    EXPECT_EQ(log_.take(), Lines{"cLotto.GetDataEstrazioneDaConta() 3021"}) << draws_back;
  }
}

TEST_P(DrawsTest, EmptyArchive) {
  EXPECT_FALSE(lotto_.GetEstrazioneDaData(day(2005, 2, 9)));
  EXPECT_EQ(log_.take(), Lines{"cLotto.GetEstrazioneDaData() 91"});
  EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(1), Variant(Empty{}));
  EXPECT_EQ(log_.take(), Lines{"cLotto.GetDataEstrazioneDaConta() 3021"});
  EXPECT_TRUE(lotto_.DelEstrazione(day(2005, 2, 9)));
  EXPECT_TRUE(save(day(2005, 2, 9), 17));
  EXPECT_EQ(lotto_.GetDataEstrazioneDaConta(1), Variant(day(2005, 2, 9)));
}

}  // namespace
}  // namespace conformance
