#include "dorvane/statement_guard.h"

#include <gtest/gtest.h>

#include <array>

#include "automation/error.h"

namespace dorvane {
namespace {

constexpr Syntax syntax{.backtick_names = true, .colon_and_at_operators = true};
constexpr std::array<std::string_view, 5> words{"insert", "update", "delete", "into", "setval"};
constexpr std::array<std::string_view, 2> functions{"sleep", "nextval"};
constexpr std::array<std::string_view, 1> names{"server_files"};
constexpr Prohibitions prohibitions{syntax, words, functions, names};

template <class Body>
bool passes(Body body) {
  try {
    body();
    return true;
  } catch (const automation::RunTimeError& error) {
    EXPECT_EQ(error.number(), 5);
    return false;
  }
}

TEST(StatementGuard, LetsReadersReadAndChangesChange) {
  struct Row {
    const char* text;
    bool reads;
    bool changes;
  };
  StatementGuard guard(prohibitions);
  guard.refuse_functions({"of_this_server"});
  for (const Row& row : {
           Row{"SELECT 1", true, true},
           Row{"select 'insert' FROM \"delete\"", true, true},
           Row{" -- delete\n(SELECT 1)", true, true},
           Row{"WITH a AS (SELECT 1) SELECT * FROM a", true, true},
           Row{"VALUES (1)", true, false},
           Row{"WITH a AS (DELETE FROM storico RETURNING id) SELECT * FROM a", false, true},
           Row{"WITH a AS (INSERT INTO storico SELECT 1) SELECT 1", false, false},
           Row{"SELECT 1 INTO t", false, false},
           Row{"SELECT setval", false, false},
           Row{"SELECT id FROM storico FOR UPDATE", false, false},
           Row{"INSERT INTO storico(id)VALUES(1)", false, true},
           Row{"INSERT INTO other(id)VALUES(1+1)", false, true},
           Row{"INSERT INTO other(id)VALUES(nextval('s'))", false, false},
           Row{"REPLACE INTO storico(id)VALUES(1)", false, true},
           Row{"update storico set id=1", false, true},
           Row{"UPDATE OR REPLACE storico SET id=1", false, true},
           Row{"UPDATE storico SET ruota=replace(ruota,'A','B')", false, true},
           Row{"UPDATE storico SET id=sleep(9)", false, false},
           Row{"DELETE FROM storico", false, true},
           // Of tables, and of nothing else.
           Row{"CREATE TABLE t(i int)", false, true},
           Row{"CREATE TEMP TABLE IF NOT EXISTS t(i int)", false, true},
           Row{"CREATE OR REPLACE VIEW v AS SELECT 1", false, true},
           Row{"CREATE UNIQUE INDEX i ON t(i)", false, true},
           Row{"CREATE TRIGGER t AFTER DELETE ON a BEGIN INSERT INTO storico SELECT 1; END", false, true},
           Row{"ALTER TABLE t ADD c int", false, true},
           Row{"drop table t", false, true},
           Row{"CREATE EXTENSION dblink", false, false},
           Row{"CREATE FUNCTION f() RETURNS int AS '' LANGUAGE sql", false, false},
           Row{"CREATE VIRTUAL TABLE t USING fts5(a)", false, false},
           Row{"ALTER SYSTEM SET a='b'", false, false},
           Row{"ALTER USER u PASSWORD 'p'", false, false},
           Row{"DROP DATABASE d", false, false},
           Row{"CREATE UNLOGGED TABLE t(i int)", false, true},
           Row{"CREATE OR REPLACE TEMPORARY TABLE t(i int)", false, true},
           Row{"CREATE FULLTEXT INDEX i ON t(a)", false, true},
           Row{"CREATE MATERIALIZED VIEW v AS SELECT 1", false, true},
           Row{"CREATE RECURSIVE VIEW v(n) AS SELECT 1", false, true},
           Row{"ALTER ONLINE IGNORE TABLE t ADD c int", false, true},
           Row{"CREATE TABLE t(i int) DATA DIRECTORY='/x'", false, false},
           Row{"CREATE TABLE t(i int) index Directory '/x'", false, false},
           Row{"CREATE TABLE t(data int, directory int)", false, true},
           Row{"CREATE", false, false},
           Row{"BEGIN", false, false},
           Row{"COMMIT", false, false},
           Row{"SET a=1", false, false},
           Row{"VACUUM INTO 'x'", false, false},
           Row{"ATTACH 'x' AS y", false, false},
           Row{"PRAGMA user_version", false, false},
           Row{"EXPLAIN SELECT 1", false, false},
           Row{"COPY storico TO '/x'", false, false},
           Row{"GRANT ALL ON storico TO x", false, false},
           Row{"", false, false},
           Row{"-- nothing", false, false},
           // Functions, in any spelling.
           Row{"SELECT sleep(1)", false, false},
           Row{"SELECT SLEEP /**/ (1)", false, false},
           Row{"SELECT \"sleep\"(1)", false, false},
           Row{"SELECT `sleep`(1)", false, false},
           Row{"SELECT a.sleep(1)", false, false},
           Row{"SELECT ARRAY[sleep(1)]", false, false},
           Row{"SELECT of_this_server()", false, false},
           Row{"SELECT sleep, 'sleep(1)' FROM t", true, true},
           Row{"SELECT * FROM server_files", false, false},
           Row{"SELECT NEXT VALUE FOR s", false, false},
           Row{"SELECT next FROM t", true, true},
       }) {
    EXPECT_EQ(passes([&] { guard.require_reading(row.text); }), row.reads) << row.text;
    EXPECT_EQ(passes([&] { guard.require_change(row.text); }), row.changes) << row.text;
  }
  EXPECT_FALSE(passes([&] { guard.require_reading(std::string_view("SELECT 1\0", 9)); }));
}

TEST(StatementGuard, StatementsHaveNoParameters) {
  struct Row {
    const char* text;
    bool passes;
    bool passes_where_they_are_no_operators;
  };
  constexpr Syntax strict{.backtick_names = true};
  const Prohibitions others{strict, {}, {}, {}};
  for (const Row& row :
       {Row{"SELECT ?", false, false}, Row{"SELECT ?1", false, false}, Row{"SELECT :a", false, false},
        Row{"SELECT :1", true, false}, Row{"SELECT @x", false, false}, Row{"SELECT @@x", false, false},
        Row{"SELECT @`x`", false, false}, Row{"SELECT $x", false, false}, Row{"SELECT $1", false, false},
        Row{"SELECT '?',\":a\" -- $1", true, true}, Row{"SELECT '1'::date", true, false},
        Row{"SELECT a[1:2]", true, false}, Row{"SELECT a <@ b, @ -5", true, false}}) {
    EXPECT_EQ(passes([&] { StatementGuard(prohibitions).require_reading(row.text); }), row.passes) << row.text;
    EXPECT_EQ(passes([&] { StatementGuard(others).require_reading(row.text); }), row.passes_where_they_are_no_operators)
        << row.text;
    EXPECT_EQ(
        passes([&] { StatementGuard(prohibitions).require_change(std::string("DELETE FROM t WHERE a=") + row.text); }),
        row.passes)
        << row.text;
  }
}

}  // namespace
}  // namespace dorvane
