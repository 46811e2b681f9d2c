#include <gtest/gtest.h>

#include "automation/coercion.h"
#include "automation/error.h"
#include "tests/conformance/back_end.h"

namespace conformance {
namespace {

using automation::Ref;
using vestara::RecordSet;
using Lines = std::vector<std::string>;

class ConnectorTest : public BackEnd {
 protected:
  void add(int contest, const char* date, const char* wheel, const char* numbers = "1,2,3,4,5") {
    ASSERT_TRUE(execute("INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES(" +
                        std::to_string(contest) + ",'" + date + "','" + wheel + "'," + numbers + ")"))
        << connector_->LastError();
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, ConnectorTest, engines(), engine_name);

TEST_P(ConnectorTest, TableAndColumnNamesInAnyLetterCaseReachTheSameTable) {
  add(7, "2005-02-09", "VE");
  for (const char* statement :
       {"SELECT concorsoNumero FROM storico", "SELECT ConcorsoNumero FROM Storico",
        "select CONCORSONUMERO from STORICO", "SELECT S.concorsonumero FROM storico AS s WHERE s.ID>0"})
    EXPECT_EQ(one(statement), "7") << statement;
}

TEST_P(ConnectorTest, RecordCountOfAGroupedStatementEqualsItsNumberOfGroups) {
  add(1, "2005-02-09", "VE");
  add(1, "2005-02-09", "BA");
  add(2, "2005-02-12", "BA");
  Ref<RecordSet> set;
  ASSERT_TRUE(connector_->OpenRecordset(set, "SELECT storico.dtEstr From storico  GROUP BY storico.dtEstr"));
  EXPECT_EQ(set->record_count(), 2);
}

TEST_P(ConnectorTest, DatesComeBackAsDatesAlsoThroughMaxAndMin) {
  add(1, "1871-01-07", "FI");
  add(2, "2026-08-21", "BA");
  for (const auto& [statement, date] : {std::pair{"SELECT max(dtEstr)as dmax FROM Storico", "21/08/2026"},
                                        {"SELECT min(dtEstr)as dmin FROM Storico", "07/01/1871"},
                                        {"SELECT s.dtEstr FROM storico as s WHERE ruota='FI'", "07/01/1871"}}) {
    Ref<RecordSet> set;
    ASSERT_TRUE(connector_->OpenRecordset(set, statement));
    EXPECT_EQ(set->value({0}).kind(), automation::VariantKind::date) << statement;
    EXPECT_EQ(automation::to_text(set->value({0})), date) << statement;
  }
}

TEST_P(ConnectorTest, FieldsAreFoundByTheNameThatTheStatementWrote) {
  add(3, "2005-02-09", "VE");
  Ref<RecordSet> set;
  ASSERT_TRUE(connector_->OpenRecordset(
      set,
      "SELECT s2.id, s2.n,R1.dtEstr, sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join"
      "(SELECT id, count(*) AS n FROM storico GROUP BY id) s2 on sto.id=s2.id inner join storico R1 on R1.id=s2.id"));
  EXPECT_EQ(set->whole_number(set->column("s2.n")), 1);
  EXPECT_EQ(set->whole_number(set->column("concorsonumero")), 3);
  EXPECT_EQ(set->column("sto.dtEstr").index, 2);
  EXPECT_EQ(set->column("dtestr").index, 2);
  EXPECT_THROW(set->column("dtSave"), automation::RunTimeError);
}

TEST_P(ConnectorTest, TheRecordSetAnswersToItsClassicNames) {
  add(3, "2005-02-09", "VE");
  add(4, "2005-02-12", "BA");
  using automation::InvokeKind;
  using automation::Variant;
  std::vector<Variant> open{Ref<automation::Object>(), "SELECT concorsoNumero,ruota FROM storico ORDER BY dtEstr"};
  automation::Object& connector = *connector_;
  ASSERT_TRUE(connector.call("openrecordset", InvokeKind::method, open) == Variant(true));
  const Ref<automation::Object> set = *open[0].get_if<Ref<automation::Object>>();
  ASSERT_TRUE(set);
  const auto get = [](const Ref<automation::Object>& object, const char* member, std::vector<Variant> arguments = {}) {
    return object->call(member, InvokeKind::get, arguments);
  };
  const auto field = [&](Variant index) {
    return *get(set, "Fields", {std::move(index)}).get_if<Ref<automation::Object>>();
  };
  EXPECT_TRUE(get(set, "RecordCount") == Variant(2));
  EXPECT_TRUE(get(set, "EOF") == Variant(false));
  EXPECT_TRUE(get(set, "BOF") == Variant(false));
  EXPECT_TRUE(get(set, "State") == Variant(1));
  EXPECT_TRUE(get(field("RUOTA"), "Value") == Variant("VE"));
  std::vector<Variant> by_default{"ruota"};
  const Variant same = set->invoke(0, InvokeKind::get, by_default);
  EXPECT_TRUE((*same.get_if<Ref<automation::Object>>())->default_value() == Variant("VE"));
  EXPECT_TRUE(field(0)->default_value() == Variant(3));
  EXPECT_TRUE(get(field(1), "Name") == Variant("ruota"));
  const Ref<automation::Object> fields = *get(set, "Fields").get_if<Ref<automation::Object>>();
  EXPECT_TRUE(get(fields, "Count") == Variant(2));
  for (const Variant& index : std::vector<Variant>{2, -1, "estr1"}) {
    std::vector<Variant> arguments{index};
    EXPECT_THROW(fields->call("Item", InvokeKind::get, arguments), automation::RunTimeError);
  }
  const Ref<automation::Object> wheel = field("ruota");
  set->call("MoveNext", InvokeKind::method, {});
  EXPECT_TRUE(wheel->default_value() == Variant("BA")) << "a field follows the cursor";
  set->call("MoveFirst", InvokeKind::method, {});
  const Variant rows = set->call("GetRows", InvokeKind::method, {});
  const auto* array = rows.get_if<automation::Array>();
  ASSERT_TRUE(array);
  EXPECT_EQ(array->upper(0), 1);
  EXPECT_EQ(array->upper(1), 1);
  EXPECT_TRUE(array->at(std::vector<int32_t>{1, 1}) == Variant("BA"));
  EXPECT_TRUE(get(set, "EOF") == Variant(true));
  set->call("Close", InvokeKind::method, {});
  EXPECT_TRUE(get(set, "State") == Variant(0));
}

TEST_P(ConnectorTest, NullStaysNull) {
  ASSERT_TRUE(execute("INSERT INTO storico(dtEstr,ruota,estr1)VALUES(NULL,NULL,NULL)"));
  EXPECT_EQ(one("SELECT dtEstr,ruota,estr1,concorsoNumero FROM storico"), "Null Null Null Null");
  EXPECT_EQ(one("SELECT max(dtEstr)as dmax FROM Storico"), "Null");
}

TEST_P(ConnectorTest, ReadersCannotWriteAndChangesAreOneStatement) {
  add(1, "2005-02-09", "VE");
  for (const char* statement :
       {"DELETE FROM storico", "INSERT INTO storico(estr1)VALUES(1)", "UPDATE storico SET estr1=9",
        "DROP TABLE storico", "SELECT 1; DELETE FROM storico", "BEGIN", "COMMIT", "", " ", "-- nothing",
        "SELECT * FROM nowhere", "SELECT * FROM storico where estr1 IN(5,", "PRAGMA user_version",
        "ATTACH ':memory:' AS other"})
    EXPECT_EQ(rows(statement), Lines{"refused"}) << statement;
  for (const char* statement :
       {"DELETE FROM ruote; DELETE FROM storico", "BEGIN", "COMMIT", "ROLLBACK", "SAVEPOINT a",
        "ATTACH ':memory:' AS other", "PRAGMA user_version=7", "", "nonsense",
        "INSERT INTO storico(estr1)VALUES(1);DELETE FROM storico", "INSERT INTO storico(estr1,estr2)VALUES(1)"})
    EXPECT_FALSE(execute(statement)) << statement;
  EXPECT_FALSE(connector_->LastError().empty());
  EXPECT_EQ(one("SELECT count(*) FROM storico"), "1");
  EXPECT_EQ(one("SELECT count(*) FROM ruote"), "11");
  EXPECT_TRUE(execute("DELETE FROM storico; -- the only one"));
}

TEST_P(ConnectorTest, DoubledBackslashesArriveAsOne) {
  const std::string insert = "INSERT INTO tRicerche (idRicerca,descRicerca,numeri) VALUES (";
  ASSERT_TRUE(execute(insert + R"(1,'C:\\lotto\\it''s','5'))"));
  ASSERT_TRUE(execute(insert + R"(2,'single \ stays','5'))"));
  EXPECT_EQ(one("SELECT descRicerca FROM tRicerche WHERE idRicerca=1"), R"(C:\lotto\it's)");
  EXPECT_EQ(one("SELECT descRicerca FROM tRicerche WHERE idRicerca=2"), R"(single \ stays)");
  EXPECT_EQ(one(R"(SELECT idRicerca FROM tRicerche WHERE descRicerca='C:\\lotto\\it''s')"), "1");
}

TEST_P(ConnectorTest, WhatFitsNoColumnIsRefusedAndServersRefuseImpossibleDatesToo) {
  const auto stored = [&](const std::string& date, const std::string& number) {
    return execute("INSERT INTO storico(dtEstr,estr1)VALUES(" + date + "," + number + ")");
  };
  EXPECT_TRUE(stored("'2004-02-29'", "32767"));
  EXPECT_TRUE(stored("NULL", "-32768"));
  for (const char* number : {"32768", "-32769", "4294967296"}) EXPECT_FALSE(stored("NULL", number)) << number;
  for (const char* date : {"'2005-02-29'", "'2005-00-10'", "'0000-00-00'", "'2005-02-00'"})
    EXPECT_EQ(stored(date, "1"), GetParam() == Engine::sqlite) << date;
}

TEST_P(ConnectorTest, LikeMindsNeitherCaseNorBackslashesButAccents) {
  ASSERT_TRUE(
      execute("INSERT INTO tRicerche(idRicerca,descRicerca)VALUES(1,'Perché'),(2,'PERCHE'),(3,'C:\\a_b'),(4,'50%')"));
  struct Row {
    const char* pattern;
    Lines keys;
  };
  for (const Row& row : {Row{"perch%", {"1", "2"}}, Row{"PERCHÉ", {"1"}}, Row{"%c:\\\\A_B%", {"3"}},
                         Row{"%\\\\%", {"3"}}, Row{"%0%", {"4"}}, Row{"p_rch_", {"1", "2"}}, Row{"perché ", {}}})
    EXPECT_EQ(rows(std::string("SELECT idRicerca FROM tRicerche WHERE descRicerca LIKE '") + row.pattern +
                   "' ORDER BY idRicerca"),
              row.keys)
        << row.pattern;
  EXPECT_EQ(one("SELECT count(*) FROM tRicerche WHERE descRicerca='perché'"), "0") << "equality minds the case";
}

TEST_P(ConnectorTest, NullIsNeitherLikeNorUnlikeAnything) {
  ASSERT_TRUE(execute("INSERT INTO tSistemi(idSis,titolo)VALUES(1,'ambo'),(2,'terno'),(3,NULL),(4,'')"));
  struct Row {
    const char* condition;
    Lines keys;
  };
  for (const Row& row :
       {Row{"titolo LIKE 'a%'", {"1"}}, Row{"titolo NOT LIKE 'a%'", {"2", "4"}},
        Row{"titolo LIKE '%'", {"1", "2", "4"}}, Row{"titolo NOT LIKE '%'", {}}, Row{"titolo LIKE ''", {"4"}},
        Row{"titolo LIKE NULL", {}}, Row{"titolo NOT LIKE NULL", {}}, Row{"NULL LIKE titolo", {}},
        Row{"NULL NOT LIKE titolo", {}}, Row{"(titolo LIKE 'a%') IS NULL", {"3"}}})
    EXPECT_EQ(rows(std::string("SELECT idSis FROM tSistemi WHERE ") + row.condition + " ORDER BY idSis"), row.keys)
        << row.condition << connector_->LastError();
}

TEST_P(ConnectorTest, NullIsTheSmallestOfEveryOrder) {
  for (const char* date : {"'2005-02-09'", "NULL", "'2005-02-12'"})
    ASSERT_TRUE(execute(std::string("INSERT INTO storico(dtEstr)VALUES(") + date + ")"));
  EXPECT_EQ(rows("SELECT dtEstr FROM storico ORDER BY dtEstr DESC"), (Lines{"12/02/2005", "09/02/2005", "Null"}));
  EXPECT_EQ(rows("SELECT dtEstr FROM storico ORDER BY dtEstr"), (Lines{"Null", "09/02/2005", "12/02/2005"}));
}

TEST_P(ConnectorTest, ColumnsHaveOneSpelling) {
  add(1, "2005-02-09", "VE");
  const auto names = [&](const char* statement) {
    Ref<RecordSet> set;
    EXPECT_TRUE(connector_->OpenRecordset(set, statement)) << connector_->LastError();
    Lines result;
    for (int32_t i = 0; i < set->column_count(); ++i) result.push_back(set->column_name({i}));
    return result;
  };
  EXPECT_EQ(names("SELECT * FROM STORICO"),
            (Lines{"id", "dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5", "concorsoNumero"}));
  EXPECT_EQ(names("SELECT S.CONCORSONUMERO,count(*) AS Quanti,max(s.DTESTR)as dMax FROM storico as s GROUP BY "
                  "S.concorsonumero"),
            (Lines{"concorsoNumero", "Quanti", "dMax"}));
  EXPECT_EQ(names("SELECT count(*) FROM storico"), Lines{"count(*)"});
}

TEST_P(ConnectorTest, KeysBeginAnewWhenTheDrawsWereAllDeleted) {
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(execute("DELETE FROM storico"));
    add(1, "2005-02-09", "VE");
    EXPECT_EQ(one("SELECT id FROM storico"), "1");
  }
}

TEST_P(ConnectorTest, KeysNearTheirEndBeginAnewWithTheNextImport) {
  ASSERT_TRUE(execute("INSERT INTO storico(id,ruota)VALUES(1500000000,'BA')"));
  connector_->BeginTrans();
  ASSERT_TRUE(execute("DELETE FROM storico"));
  add(1, "2005-02-09", "VE");
  add(1, "2005-02-09", "BA");
  connector_->CommitTrans();
  add(2, "2005-02-12", "VE");
  EXPECT_EQ(rows("SELECT id,ruota FROM storico ORDER BY id"), (Lines{"1 VE", "2 BA", "3 VE"}));
}

TEST_P(ConnectorTest, KeysOfOthersAreNotGivenOutAgain) {
  ASSERT_TRUE(execute("INSERT INTO tSistemaDetail(id,idSis)VALUES(7,1)"));
  ASSERT_TRUE(connector_->CreateSchema()) << connector_->LastError();
  ASSERT_TRUE(execute("INSERT INTO tSistemaDetail(idSis)VALUES(1)")) << connector_->LastError();
  EXPECT_EQ(rows("SELECT id FROM tSistemaDetail ORDER BY id"), (Lines{"7", "8"}));
}

TEST_P(ConnectorTest, ACompleteArchiveLacksNothingAndADamagedOneSaysWhat) {
  EXPECT_EQ(connector_->CheckSchema(), "");
  ASSERT_TRUE(execute("DELETE FROM ruote WHERE ruotaAlias='RN'"));
  ASSERT_TRUE(execute("DROP TABLE tSistemaDetail"));
  const std::string missing = connector_->CheckSchema();
  for (const char* line :
       {"table tSistemaDetail is missing", "wheel RN is missing", "vestara_sistema_detail is missing"})
    EXPECT_NE(missing.find(line), std::string::npos) << missing;
  EXPECT_TRUE(connector_->CreateSchema()) << connector_->LastError();
  EXPECT_EQ(connector_->CheckSchema(), "");
}

TEST_P(ConnectorTest, AMultiRowInsertIsAllOrNothing) {
  const std::string insert = "INSERT INTO tRicerche(idRicerca,descRicerca)VALUES";
  EXPECT_TRUE(execute(insert + "(1,'a'),(2,'b')"));
  EXPECT_FALSE(execute(insert + "(3,'c'),(2,'again'),(4,'d')"));
  EXPECT_EQ(one("SELECT count(*) FROM tRicerche"), "2");
  connector_->BeginTrans();
  EXPECT_TRUE(execute(insert + "(5,'e')"));
  EXPECT_FALSE(execute(insert + "(6,'f'),(5,'again')"));
  EXPECT_EQ(execute(insert + "(7,'g')"), keeps_failed_transactions());
  if (keeps_failed_transactions())
    connector_->CommitTrans();
  else
    EXPECT_THROW(connector_->CommitTrans(), automation::RunTimeError);
  EXPECT_EQ(rows("SELECT idRicerca FROM tRicerche ORDER BY idRicerca"),
            keeps_failed_transactions() ? (Lines{"1", "2", "5", "7"}) : (Lines{"1", "2"}));
}

TEST_P(ConnectorTest, GetMaxIdIsTheLargestValueAndZeroForAnEmptyTable) {
  EXPECT_EQ(connector_->GetMaxId("tRicerche", "idRicerca"), 0);
  ASSERT_TRUE(execute("INSERT INTO tRicerche(idRicerca)VALUES(41)"));
  EXPECT_EQ(connector_->GetMaxId("TRICERCHE", "idricerca"), 41);
  EXPECT_EQ(connector_->GetMaxId("nowhere", "id"), 0);
  EXPECT_EQ(connector_->GetMaxId("tRicerche; DROP TABLE storico", "idRicerca"), 0);
  EXPECT_NE(connector_->LastError().find("not a table and a column"), std::string::npos);
}

TEST_P(ConnectorTest, ATransactionSpansItsCalls) {
  const auto other = another();
  connector_->BeginTrans();
  add(1, "2005-02-09", "VE");
  EXPECT_EQ(other->GetMaxId("storico", "concorsoNumero"), 0);
  connector_->CommitTrans();
  EXPECT_EQ(other->GetMaxId("storico", "concorsoNumero"), 1);
  connector_->BeginTrans();
  add(2, "2005-02-12", "VE");
  connector_->RollbackTrans();
  EXPECT_EQ(other->GetMaxId("storico", "concorsoNumero"), 1);
}

TEST_P(ConnectorTest, CommitWithoutATransactionIsAnErrorAndRollbackIsNot) {
  EXPECT_THROW(connector_->CommitTrans(), automation::RunTimeError);
  EXPECT_NO_THROW(connector_->RollbackTrans());
}

TEST_P(ConnectorTest, TiesComeInOneOrder) {
  // Keys run against wheels and contest numbers, so that no accident of storage gives the right order.
  add(9, "2005-02-09", "VE");
  add(2, "2005-02-12", "RM");
  add(2, "2005-02-12", "BA");
  add(9, "2005-02-09", "BA");
  add(1, "2005-02-09", "FI");
  const std::string draws = "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM storico AS s ORDER BY s.dtEstr ";
  const std::string wheels = "SELECT ruota FROM storico ORDER BY dtEstr ";
  const std::string one_wheel = "SELECT id FROM storico WHERE ruota='BA' OR ruota='FI' ORDER BY dtEstr ";
  EXPECT_EQ(rows(draws + "DESC"), (Lines{"12/02/2005 2", "09/02/2005 1", "09/02/2005 9"}));
  EXPECT_EQ(rows(draws + "ASC"), (Lines{"09/02/2005 1", "09/02/2005 9", "12/02/2005 2"}));
  EXPECT_EQ(rows(wheels + "DESC"), (Lines{"RM", "BA", "VE", "BA", "FI"}));
  EXPECT_EQ(rows(wheels + "ASC"), (Lines{"VE", "BA", "FI", "RM", "BA"}));
  EXPECT_EQ(rows(one_wheel + "DESC"), (Lines{"3", "4", "5"}));
  EXPECT_EQ(rows(one_wheel + "ASC"), (Lines{"4", "5", "3"}));
}

TEST_P(ConnectorTest, AnOrderForTiesBreaksNoStatement) {
  add(1, "2005-02-09", "VE");
  add(1, "2005-02-09", "BA");
  add(2, "2005-02-12", "BA");
  ASSERT_TRUE(execute("INSERT INTO tSistemaDetail(id,idSis)VALUES(1,1),(2,1),(3,1)"));
  struct Row {
    const char* statement;
    Lines rows;
  };
  const std::vector<Row> table{
      {"SELECT ruota,count(*) FROM storico GROUP BY ruota HAVING count(*)>0 ORDER BY count(*) DESC", {"BA 2", "VE 1"}},
      {"SELECT upper(ruota),count(*) FROM storico GROUP BY upper(ruota) HAVING count(*)>1 ORDER BY count(*)", {"BA 2"}},
      {"SELECT dtEstr FROM storico UNION SELECT dtEstr FROM storico ORDER BY dtEstr", {"09/02/2005", "12/02/2005"}},
      {"SELECT s.id,d.id FROM storico s JOIN tSistemaDetail d ON d.id=s.id ORDER BY dtEstr DESC",
       {"3 3", "1 1", "2 2"}},
      {"SELECT d.id FROM tSistemaDetail d JOIN storico s ON d.id=s.id AND s.id<>1 ORDER BY dtEstr", {"2", "3"}},
      {"SELECT max(dtEstr) AS dtEstr FROM storico ORDER BY dtEstr", {"12/02/2005"}},
      {"SELECT count(*) AS n,max(dtEstr) AS dtEstr FROM storico GROUP BY concorsoNumero ORDER BY dtEstr",
       {"2 09/02/2005", "1 12/02/2005"}},
      {"SELECT DISTINCT dtEstr FROM storico ORDER BY dtEstr DESC", {"12/02/2005", "09/02/2005"}},
      {"SELECT DISTINCT dtEstr,concorsoNumero+1 AS next FROM storico ORDER BY dtEstr",
       {"09/02/2005 2", "12/02/2005 3"}},
      {"SELECT DISTINCT a.dtEstr,abs(a.concorsoNumero) AS concorsoNumero FROM storico a ORDER BY a.dtEstr",
       {"09/02/2005 1", "12/02/2005 2"}},
      // Known only by asking: the table that stands first has no key of that name.
      {"SELECT storico.dtEstr FROM (SELECT dtEstr,ruota FROM storico WHERE ruota='VE') storico ORDER BY dtEstr",
       {"09/02/2005"}},
      {"WITH storico AS (SELECT 5 AS dtEstr) SELECT dtEstr FROM storico ORDER BY dtEstr", {"5"}},
      {"SELECT ruota FROM storico s CROSS JOIN (SELECT 1 AS one) o GROUP BY ruota,dtEstr ORDER BY dtEstr DESC,ruota",
       {"BA", "BA", "VE"}}};
  for (const Row& row : table) EXPECT_EQ(rows(row.statement), row.rows) << connector_->LastError();
  connector_->BeginTrans();
  for (const Row& row : table) EXPECT_EQ(rows(row.statement), row.rows) << connector_->LastError();
  add(3, "2005-02-15", "BA");
  connector_->CommitTrans();
  EXPECT_EQ(one("SELECT count(*) FROM storico"), "4") << "what was tried within the transaction took nothing of it";
}

TEST_P(ConnectorTest, CloseRecordsetEmptiesTheReference) {
  Ref<RecordSet> set;
  ASSERT_TRUE(connector_->OpenRecordset(set, "SELECT 1 AS n"));
  const Ref<RecordSet> kept = set;
  connector_->CloseRecordset(set);
  EXPECT_FALSE(set);
  EXPECT_FALSE(kept->is_open());
  connector_->CloseRecordset(set);
}

}  // namespace
}  // namespace conformance
