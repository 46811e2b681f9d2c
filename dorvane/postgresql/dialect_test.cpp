#include "dorvane/postgresql/dialect.h"

#include <gtest/gtest.h>

namespace dorvane::postgresql {
namespace {

TEST(PostgresqlDialect, ReadingStatements) {
  struct Row {
    const char* given;
    const char* expected;
  };
  for (const Row& row :
       {Row{"SELECT 1", "SELECT 1"},
        Row{"SELECT * FROM tRicerche ORDER BY dtSave Desc", "SELECT * FROM tRicerche ORDER BY dtSave Desc NULLS LAST"},
        Row{"SELECT id FROM storico ORDER BY dtEstr ASC,id",
            "SELECT id FROM storico ORDER BY dtEstr ASC NULLS FIRST,id NULLS FIRST"},
        Row{"SELECT id FROM ruote ORDER BY id", "SELECT id FROM ruote ORDER BY id NULLS FIRST"},
        Row{"SELECT id FROM a ORDER BY f(x, y) DESC, b NULLS LAST LIMIT 3",
            "SELECT id FROM a ORDER BY f(x, y) DESC NULLS LAST, b NULLS LAST LIMIT 3"},
        Row{"SELECT a FROM t ORDER BY a DESC, b", "SELECT a FROM t ORDER BY a DESC NULLS LAST, b NULLS FIRST"},
        Row{"SELECT a FROM t ORDER BY a, b DESC, c",
            "SELECT a FROM t ORDER BY a NULLS FIRST, b DESC NULLS LAST, c NULLS FIRST"},
        Row{"SELECT a FROM t ORDER BY a DESC NULLS FIRST, b, c DESC",
            "SELECT a FROM t ORDER BY a DESC NULLS FIRST, b NULLS FIRST, c DESC NULLS LAST"},
        Row{"SELECT a FROM t ORDER BY a NULLS LAST, b DESC, c ASC",
            "SELECT a FROM t ORDER BY a NULLS LAST, b DESC NULLS LAST, c ASC NULLS FIRST"},
        Row{"SELECT a FROM t ORDER BY a DESC OFFSET 2", "SELECT a FROM t ORDER BY a DESC NULLS LAST OFFSET 2"},
        Row{"SELECT a FROM t order by a fetch first row only",
            "SELECT a FROM t order by a NULLS FIRST fetch first row only"},
        Row{"SELECT a FROM t ORDER BY a;", "SELECT a FROM t ORDER BY a NULLS FIRST;"},
        Row{"SELECT a,b FROM t GROUP BY a,b LIMIT 3", "SELECT a,b FROM t GROUP BY a,b LIMIT 3"},
        Row{"SELECT id FROM (SELECT id FROM a ORDER BY b DESC) AS c",
            "SELECT id FROM (SELECT id FROM a ORDER BY b DESC) AS c"},
        Row{"SELECT id FROM a ORDER BY b -- the end", "SELECT id FROM a ORDER BY b NULLS FIRST -- the end"},
        Row{"SELECT a FROM t WHERE a LIKE 'it''s%'",
            R"(SELECT a FROM t WHERE a ILIKE 'it''s%' COLLATE "und-x-icu" ESCAPE '')"},
        Row{R"(SELECT * FROM tSistemi WHERE (titolo LIKE '%a\\b%'))",
            R"(SELECT * FROM tSistemi WHERE (titolo ILIKE '%a\b%' COLLATE "und-x-icu" ESCAPE ''))"}})
    EXPECT_EQ(translate_reading(row.given), row.expected) << row.given;
}

TEST(PostgresqlDialect, WhatNeedsNothingStaysAsItIs) {
  for (const char* text : {"DELETE FROM storico WHERE dtEstr ='2005-02-09'", "INSERT INTO a VALUES('LIKE\\','x')", ""})
    EXPECT_EQ(translate(text), text);
}

}  // namespace
}  // namespace dorvane::postgresql
