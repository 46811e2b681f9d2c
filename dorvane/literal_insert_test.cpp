#include "dorvane/literal_insert.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace dorvane {
namespace {

constexpr Syntax syntax{.backtick_names = true, .bracket_names = true};

TEST(LiteralInsert, TakesNumbersTextsAndNull) {
  for (const char* text :
       {"INSERT INTO storico (dtEstr,ruota,estr1)VALUES('2026-01-01','BA',5)", "insert into STORICO values(1)",
        "INSERT INTO storico(id)VALUES(-1),( +2.5 ,'it''s', NULL,1e5)", "REPLACE INTO storico(id)VALUES(1);",
        "INSERT OR IGNORE INTO main.storico(id)VALUES(1)", "INSERT INTO `storico`(\"id\",[ruota])VALUES(1,'BA')"})
    EXPECT_TRUE(inserts_literals(text, syntax)) << text;
}

TEST(LiteralInsert, RowsOfTheArchiveAreNeverComputed) {
  // Behind these a file could say what is stored.
  for (const char* text : {"INSERT INTO storico(id)VALUES((SELECT 1))",
                           "INSERT INTO storico(id)VALUES(1+1)",
                           "INSERT INTO storico(id)VALUES(abs(1))",
                           "INSERT INTO storico(id)VALUES(id)",
                           "INSERT INTO storico(id)VALUES(x'00')",
                           "INSERT INTO storico(id)VALUES('a'||'b')",
                           "INSERT INTO storico(id)VALUES('a' 'b')",
                           "INSERT INTO storico(id)VALUES(-'a')",
                           "INSERT INTO storico(id)VALUES(- -1)",
                           "INSERT INTO storico(id)VALUES(\"a\")",
                           "INSERT INTO storico(id)VALUES(1)--,'BA')",
                           "INSERT INTO storico(id)VALUES(1/*)*/)",
                           "INSERT INTO storico(id)VALUES(1)ON CONFLICT DO NOTHING",
                           "INSERT INTO storico(id)VALUES(1)RETURNING id",
                           "INSERT INTO storico(id)VALUES(1),",
                           "INSERT INTO storico SELECT 1",
                           "INSERT INTO storico DEFAULT VALUES",
                           "INSERT storico SET id=(SELECT 1)",
                           "INSERT INTO 'storico' SELECT 1",
                           "INSERT INTO [STORICO] SELECT 1",
                           "INSERT INTO main.`storico` SELECT 1",
                           "REPLACE INTO ruote SELECT 1",
                           "INSERT OR REPLACE INTO tSistemi SELECT 1",
                           "WITH a AS (SELECT 1) INSERT INTO tRicerche SELECT * FROM a",
                           "WITH a AS (INSERT INTO tSistemaDetail SELECT 1 RETURNING 1) SELECT * FROM a",
                           "INSERT INTO other WITH a AS (INSERT INTO storico SELECT 1) SELECT 1"}) {
    EXPECT_FALSE(inserts_literals(text, syntax)) << text;
    EXPECT_THROW(require_no_computed_rows(tokens_of(text, syntax)), automation::RunTimeError) << text;
  }
}

TEST(LiteralInsert, TablesOfOthersAreTheirs) {
  for (const char* text : {"INSERT INTO other SELECT id FROM storico", "INSERT INTO storico_copy(id)VALUES(1+1)",
                           "UPDATE storico SET ruota=insert(ruota,1,1,'a')", "UPDATE OR REPLACE storico SET id=2",
                           "UPDATE storico SET ruota=replace(ruota,'a','b')", "DELETE FROM storico"})
    EXPECT_NO_THROW(require_no_computed_rows(tokens_of(text, syntax))) << text;
}

}  // namespace
}  // namespace dorvane
