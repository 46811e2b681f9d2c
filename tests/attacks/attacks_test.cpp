#include <gtest/gtest.h>

#include "tests/attacks/under_attack.h"
#include "tests/support/log_capture.h"
#include "vestara/archive/lotto.h"

namespace attacks {
namespace {

using Texts = std::vector<const char*>;

class AttacksTest : public UnderAttack {
 protected:
  Texts of_engine(const Texts& sqlite, const Texts& postgresql, const Texts& mariadb) const {
    return GetParam() == Engine::sqlite ? sqlite : GetParam() == Engine::postgresql ? postgresql : mariadb;
  }
  /// The text wherever a host hands one to a search: nothing comes back.
  void attack_searches(const std::string& text) {
    vestara::cLotto lotto;
    lotto.ActiveConnection(connector_);
    lotto.LoadLottoEstr(text, 1);
    lotto.LoadLottoEstr("5", 1, text);
    lotto.LoadLottoEstr("5", 1, "", text, text);
    EXPECT_EQ(rows("SELECT dtEstr FROM storico WHERE estr1 IN(" + text + ")"), std::vector<std::string>{"refused"})
        << text;
  }

  testing_support::LogCapture log_;
};

INSTANTIATE_TEST_SUITE_P(Engines, AttacksTest, conformance::engines(), conformance::engine_name);

const Texts searches_of_all{
    "1); DELETE FROM storico --",
    "1); DELETE FROM storico; SELECT (1",
    "WITH gone AS (DELETE FROM storico RETURNING 1) SELECT 1",
    "?",
    "?1",
    ":a",
    "@x",
    "$x",
    "$1",
    "SELECT ruota INTO outside FROM storico",
    "1) INTO OUTFILE '%F",
};
const Texts searches_of_sqlite{
    "SELECT fts3_tokenizer('simple')",
    "SELECT \"fts3_tokenizer\"('simple')",
    "SELECT fts3_tokenizer('simple',x'4141414141414141')",
    "SELECT load_extension('/x')",
    "SELECT [load_extension]('/x')",
    "SELECT writefile('%F','x')",
    "SELECT readfile('%R')",
    "SELECT edit('x')",
    "SELECT 1 FROM pragma_optimize",
    "SELECT 1 FROM pragma_user_version(7)",
    "SELECT 1 FROM pragma_writable_schema(1)",
};
const Texts searches_of_postgresql{
    R"(SELECT length("set_config"('default_transaction_read_only','off',false)))",
    "SELECT length(set_config /**/ ('default_transaction_read_only','off',false))",
    "SELECT length(pg_catalog.\"set_config\"('default_transaction_read_only','off',false))",
    R"(SELECT length(U&"set\005fconfig"('default_transaction_read_only','off',false)))",
    R"(SELECT length(U&"set!005fconfig" UESCAPE '!'('default_transaction_read_only','off',false)))",
    "SELECT length((ARRAY[set_config('default_transaction_read_only','off',false)])[1])",
    "SELECT lo_create(0)::int",
    "SELECT \"lo_create\"(0)::int",
    "SELECT lo_from_bytea(0,'x')::int",
    "SELECT lo_import('%R')::int",
    "SELECT lo_export(1,'%F')",
    "SELECT \"setval\"('storico_id_seq',2000000000)::int",
    "SELECT nextval('storico_id_seq')::int",
    "SELECT length(pg_read_file('%R'))",
    "SELECT length(\"pg_read_file\"('%R'))",
    "SELECT (pg_stat_file('%R')).size::int",
    "SELECT length(pg_ls_dir('/'))",
    "SELECT length(error) FROM pg_hba_file_rules",
    "SELECT 1 FROM (SELECT pg_advisory_lock(7)) x",
    "SELECT 1 FROM (SELECT pg_sleep(30)) x",
    "SELECT 1 FROM (SELECT pg_notify('a','b')) x",
    "SELECT pg_terminate_backend(pid)::int FROM pg_stat_activity",
    "SELECT 1 WHERE query_to_xml('SELECT lo_create(0)',true,true,'') IS NOT NULL",
    "SELECT 1 WHERE cursor_to_xml('x',1,true,true,'') IS NOT NULL",
    "SELECT 1 WHERE database_to_xml(true,true,'') IS NOT NULL",
    "SELECT nentry FROM ts_stat('SELECT lo_create(0)::text::tsvector')",
    "SELECT length($$a$$)",
    R"(SELECT length(E'\' ) , set_config(\'a.b\',\'c\',false) --'))",
    "1) /* /* */ -- */\r) OR setval('storico_id_seq',2000000000)>0 --",
    "SELECT id FROM storico FOR UPDATE",
    "SELECT id FROM storico FOR SHARE",
};
const Texts searches_of_mariadb{
    "SELECT 1--1 INTO OUTFILE '%F'",
    "SELECT 1 # '\n INTO OUTFILE '%F'",
    "SELECT 1--1 /*!50000 INTO OUTFILE '%F' */",
    "SELECT 1 /*!INTO DUMPFILE '%F'*/",
    "SELECT 1 /*M!INTO DUMPFILE '%F'*/",
    "SELECT 1.5into outfile '%F'",
    "SELECT 1e5into outfile '%F'",
    "SELECT `load_file`('%R')",
    "SELECT load_file /**/ ('%R')",
    "SELECT @x:=1",
    "SELECT @@sql_mode",
    "SELECT 1 INTO @x",
    "SELECT sleep(30)",
    "SELECT \"sleep\"(30)",
    "SELECT benchmark(1000000000,md5(1))",
    "SELECT get_lock('a',0)",
    "SELECT release_all_locks()",
    "SELECT last_insert_id(77)",
    "SELECT id FROM storico FOR UPDATE",
    "SELECT id FROM storico LOCK IN SHARE MODE",
    "SELECT id FROM storico PROCEDURE analyse()",
    "SELECT NEXT VALUE FOR s",
    "SELECT setval(s,9)",
};

TEST_P(AttacksTest, NoSearchDoesMoreThanRead) {
  const std::string before = everything();
  Texts texts = of_engine(searches_of_sqlite, searches_of_postgresql, searches_of_mariadb);
  texts.insert(texts.end(), searches_of_all.begin(), searches_of_all.end());
  for (const char* text : texts) {
    attack_searches(aimed(text));
    EXPECT_EQ(changes_since(before), "") << text;
  }
  for (const char* text : texts) {
    connector_->BeginTrans();
    attack_searches(aimed(text));
    connector_->RollbackTrans();
  }
  EXPECT_EQ(changes_since(before), "");
}

TEST_P(AttacksTest, OrdinaryStatementsOfHostsRun) {
  for (const char* statement :
       {"SELECT count(*),max(estr1),min(dtEstr) FROM storico", "SELECT substr(ruota,1,1) FROM storico",
        "SELECT s.ruota,r.enumeratore FROM storico s JOIN ruote r ON r.ruotaAlias=s.ruota",
        "WITH n AS (SELECT 1 AS i) SELECT i FROM n",
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE "
        "i<9) SELECT max(i) FROM n",
        "VALUES (1),(2)", "SELECT row_number() OVER (ORDER BY id) AS place FROM storico",
        "SELECT replace(ruota,'A','?:a@x$1#--') FROM storico",
        "SELECT CASE WHEN estr1>5 THEN 'a' ELSE 'b' END FROM storico",
        "SELECT abs(-5),coalesce(NULL,1),upper('a'),length('abc'),round(1.5) FROM ruote",
        "SELECT ruota FROM storico WHERE ruota LIKE 'it''s%' OR ruota IN('BA','VE') -- the end"})
    EXPECT_NE(rows(statement), std::vector<std::string>{"refused"}) << statement << ": " << connector_->LastError();
}

TEST_P(AttacksTest, ChangesAreOfRowsAndTablesOnly) {
  const std::string before = everything();
  Texts texts = of_engine(
      {"VACUUM INTO '%F'", "VACUUM", "ANALYZE", "REINDEX", "ATTACH '%F' AS other", "PRAGMA user_version=7",
       "PRAGMA writable_schema=1", "UPDATE sqlite_master SET sql=''", "SELECT load_extension('/x')",
       "UPDATE ruote SET enumeratoreBit=length(readfile('%R'))", "CREATE VIRTUAL TABLE f USING fts5(a)"},
      {"COPY storico TO '%F'", "COPY storico TO PROGRAM 'touch %F'", "CREATE EXTENSION dblink", "DO 'BEGIN END'",
       "CREATE FUNCTION f() RETURNS int AS 'SELECT 1' LANGUAGE sql", "ALTER SYSTEM SET work_mem='1MB'",
       "SET work_mem='1MB'", "ALTER ROLE vestara SET work_mem='1MB'", "SELECT lo_export(1,'%F')", "VACUUM",
       "WITH x AS (SELECT lo_create(0)) SELECT 1 FROM x", "UPDATE ruote SET enumeratoreBit=lo_create(0)::int",
       "CREATE TABLE outside AS SELECT pg_read_file('%R')", "NOTIFY a", "LOCK TABLE storico", "TRUNCATE storico"},
      {"SELECT 1 INTO OUTFILE '%F'", "LOAD DATA INFILE '%R' INTO TABLE ruote", "SET GLOBAL max_connections=5",
       "SET @x=1", "UPDATE ruote SET enumeratoreBit=length(load_file('%R'))", "GRANT ALL ON *.* TO x", "FLUSH TABLES",
       "CREATE USER x", "LOCK TABLES storico WRITE", "CREATE SEQUENCE s", "TRUNCATE storico", "DO sleep(30)",
       "WITH x AS (SELECT 1) SELECT * FROM x INTO OUTFILE '%F'", "OPTIMIZE TABLE storico",
       "INSERT INTO storico SET estr1=(SELECT 1)", "CREATE TABLE outside(i int) DATA DIRECTORY='/tmp'"});
  const Texts of_all{"BEGIN",
                     "COMMIT",
                     "ROLLBACK",
                     "SAVEPOINT a",
                     "GRANT ALL ON storico TO x",
                     "CREATE DATABASE x",
                     "DELETE FROM storico WHERE id=?",
                     "UPDATE storico SET estr1=:a",
                     "DELETE FROM storico WHERE id=$1",
                     "UPDATE storico SET estr1=@x",
                     "INSERT INTO storico(estr1)VALUES(?)",
                     "INSERT INTO storico(estr1)SELECT 1",
                     "INSERT INTO \"storico\"(estr1)SELECT 1",
                     "INSERT INTO storico(estr1)VALUES((SELECT 1))",
                     "REPLACE INTO storico(estr1)SELECT 1",
                     "WITH x AS (SELECT 1 AS i) INSERT INTO storico(estr1) SELECT i FROM x"};
  texts.insert(texts.end(), of_all.begin(), of_all.end());
  for (const char* text : texts) {
    EXPECT_FALSE(execute(aimed(text))) << text;
    EXPECT_EQ(changes_since(before), "") << text;
  }
}

TEST_P(AttacksTest, AnUpdateFileRunsNothing) {
  for (const char* record :
       {"#(SELECT count(*) FROM ruote)#2020-01-04#BA#1#2#3#4#5", "#-(SELECT 1)#2020-01-04#BA#1#2#3#4#5",
        "#1+1#2020-01-04#BA#1#2#3#4#5", "#abs(1)#2020-01-04#BA#1#2#3#4#5", "#1#2020-01-04#B'||'A#1#2#3#4#5",
        "#1#2020-01-04#'||(SELECT 1)||'#1#2#3#4#5", "#1,NULL,'BA',1,2,3,4,5)--#2020-01-04#BA#1#2#3#4#5",
        "#1,NULL,'BA',1,2,3,4,5) ON CONFLICT DO NOTHING --#2020-01-04#BA#1#2#3#4#5", "#?#2020-01-04#BA#1#2#3#4#5",
        "#1/**/#2020-01-04#BA#1#2#3#4#5", "#id#2020-01-04#BA#1#2#3#4#5", "#\"x\"#2020-01-04#BA#1#2#3#4#5"}) {
    vestara::cLotto lotto;
    lotto.ActiveConnection(connector_);
    lotto.DbType(1);
    lotto.FileUpdate(folder_.file("update.txt", std::string(record) + "\r\n"));
    EXPECT_FALSE(lotto.UpdateTblStorico()) << record;
    EXPECT_EQ(one("SELECT count(*) FROM storico"), "0") << record;
  }
}

}  // namespace
}  // namespace attacks
