#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "automation/error.h"
#include "tests/conformance/back_end.h"
#include "tests/support/log_capture.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"

namespace conformance {
namespace {

using Lines = std::vector<std::string>;

/// What becomes of an open transaction that something else comes upon.
class TransactionsTest : public BackEnd {
 protected:
  /// Searches with these keys, one statement each.
  void save(std::initializer_list<int> keys) {
    for (const int key : keys)
      ASSERT_TRUE(execute("INSERT INTO tRicerche(idRicerca)VALUES(" + std::to_string(key) + ")"))
          << connector_->LastError();
  }
  Lines saved() { return rows("SELECT idRicerca FROM tRicerche ORDER BY idRicerca"); }

  testing_support::LogCapture log_;
};

INSTANTIATE_TEST_SUITE_P(Engines, TransactionsTest, engines(), engine_name);

TEST_P(TransactionsTest, AChangeInTheOpenOneIsNeverTakenBackByTheNextBegin) {
  const char* const insert = "INSERT INTO tRicerche(idRicerca,descRicerca)VALUES(1,'x')";
  struct Row {
    const char* before;  ///< the transaction
    const char* inside;
    bool is_change;
  };
  for (const Row& row :
       {Row{"", "SELECT 1 AS n", false}, Row{"", "DELETE FROM tRicerche WHERE idRicerca=9", false},
        Row{"", "DELETE FROM tRicerche", false}, Row{"", insert, true}, Row{insert, "DELETE FROM tRicerche", true},
        Row{insert, "DELETE FROM tRicerche WHERE idRicerca=1", true},
        Row{insert, "UPDATE tRicerche SET descRicerca='y'", true}}) {
    ASSERT_TRUE(execute("DELETE FROM tRicerche"));
    ASSERT_TRUE(*row.before == '\0' || execute(row.before)) << connector_->LastError();
    const Lines before = rows("SELECT idRicerca,descRicerca FROM tRicerche");
    connector_->BeginTrans();
    if (std::string_view(row.inside).starts_with("SELECT"))
      EXPECT_EQ(one(row.inside), "1");
    else
      ASSERT_TRUE(execute(row.inside)) << connector_->LastError();
    const Lines inside = rows("SELECT idRicerca,descRicerca FROM tRicerche");
    if (row.is_change) {
      EXPECT_THROW(connector_->BeginTrans(), automation::RunTimeError) << row.inside;
      EXPECT_NE(connector_->LastError().find("CommitTrans keeps them, RollbackTrans takes them back"),
                std::string::npos)
          << connector_->LastError();
      EXPECT_EQ(rows("SELECT idRicerca,descRicerca FROM tRicerche"), inside) << row.inside;
    } else {
      EXPECT_NO_THROW(connector_->BeginTrans()) << row.inside;
    }
    connector_->RollbackTrans();
    EXPECT_EQ(rows("SELECT idRicerca,descRicerca FROM tRicerche"), before) << row.inside;
    EXPECT_NO_THROW(connector_->BeginTrans()) << "after either end the next one may begin";
    connector_->CommitTrans();
  }
}

TEST_P(TransactionsTest, MakingWhatIsMissingIsAChange) {
  ASSERT_TRUE(execute("DELETE FROM ruote WHERE ruotaAlias='RN'"));
  connector_->BeginTrans();
  const bool makes_tables_inside = GetParam() != Engine::mariadb;
  EXPECT_EQ(connector_->CreateSchema(), makes_tables_inside) << connector_->LastError();
  if (makes_tables_inside)
    EXPECT_THROW(connector_->BeginTrans(), automation::RunTimeError);
  else
    EXPECT_NO_THROW(connector_->BeginTrans());
  connector_->RollbackTrans();
  EXPECT_EQ(one("SELECT count(*) FROM ruote"), "10");
  connector_->BeginTrans();
  EXPECT_EQ(execute("CREATE TABLE another(id INT)"), makes_tables_inside) << connector_->LastError();
  if (makes_tables_inside) {
    EXPECT_THROW(connector_->BeginTrans(), automation::RunTimeError);
  }
  connector_->RollbackTrans();
  EXPECT_EQ(one("SELECT count(*) FROM another"), "refused");
}

TEST_P(TransactionsTest, ARefusedChangeIsNone) {
  save({1});
  connector_->BeginTrans();
  EXPECT_FALSE(execute("INSERT INTO tRicerche(idRicerca)VALUES(1)"));
  EXPECT_NO_THROW(connector_->BeginTrans());
  save({2});
  connector_->CommitTrans();
  EXPECT_EQ(saved(), (Lines{"1", "2"}));
}

TEST_P(TransactionsTest, ClosingWithChangesTakesThemBackAndSaysSo) {
  struct Row {
    const char* place;
    std::function<void()> closes;
    bool has_last_error;
  };
  const std::vector<Row> table{{"DbConnector.Close", [&] { connector_->Close(); }, true},
                               {"DbConnector.Open", [&] { EXPECT_TRUE(connector_->Open(url_)); }, true},
                               {"DbConnector.Open", [&] { EXPECT_FALSE(connector_->Open("nonsense")); }, true},
                               {"DbConnector.Class_Terminate", [&] { connector_ = another(); }, false}};
  for (const Row& row : table) {
    for (const bool changes : {false, true}) {
      connector_->BeginTrans();
      if (changes) save({1});
      row.closes();
      const bool says_so = connector_->LastError().find("its changes were taken back") != std::string::npos;
      EXPECT_EQ(says_so, changes && row.has_last_error) << row.place << ": " << connector_->LastError();
      EXPECT_EQ(log_.take(), changes ? Lines{std::string(row.place) + " -2147467259"} : Lines{}) << row.place;
      connector_ = another();
      EXPECT_EQ(saved(), Lines{});
    }
  }
}

TEST_P(TransactionsTest, ARefusedDeleteOfADrawLeavesOneOpenAndNothingIsLost) {
  vestara::cLotto lotto;
  lotto.ActiveConnection(connector_);
  const auto draw = automation::make<vestara::cEstrazione>();
  draw->DataEstrazione(automation::Variant("2005-02-09"));
  // The draw's rows cannot be deleted: their date has another name.
  ASSERT_TRUE(execute("ALTER TABLE storico RENAME COLUMN dtEstr TO otherDate")) << connector_->LastError();
  EXPECT_FALSE(lotto.SalvaEstrazione(draw));
  log_.take();
  if (keeps_failed_transactions()) {
    save({1});
    EXPECT_FALSE(lotto.SalvaEstrazione(draw)) << "a search was saved in the transaction that is open";
    EXPECT_EQ(log_.take(), Lines{"cLotto.SalvaEstrazione() -2147467259"});
    connector_->CommitTrans();
    EXPECT_EQ(saved(), Lines{"1"});
  } else {
    EXPECT_FALSE(execute("INSERT INTO tRicerche(idRicerca)VALUES(1)")) << "nothing is acknowledged that will be lost";
    connector_->RollbackTrans();
  }
  EXPECT_FALSE(lotto.SalvaEstrazione(draw));
  EXPECT_FALSE(lotto.SalvaEstrazione(draw)) << "without changes the next one begins anew";
  EXPECT_EQ(log_.bytes(), "");
  connector_->RollbackTrans();
  ASSERT_TRUE(execute("DROP TABLE storico"));
}

}  // namespace
}  // namespace conformance
