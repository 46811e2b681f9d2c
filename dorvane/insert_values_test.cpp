#include "dorvane/insert_values.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace dorvane {
namespace {

TEST(InsertValues, RecognisesPlainTuples) {
  InsertValues values;
  ASSERT_TRUE(recognise_insert("INSERT INTO t(a,b,c)VALUES(1,'x',NULL),( 20 , 'BA' , null )",
                               Syntax{.bracket_names = true}, values));
  EXPECT_EQ(values.head, "INSERT INTO t(a,b,c)VALUES");
  EXPECT_EQ(values.columns, 3U);
  ASSERT_EQ(values.rows(), 2U);
  EXPECT_EQ(values.literals[0].number, 1);
  EXPECT_EQ(values.literals[1].text, "x");
  EXPECT_EQ(values.literals[2].kind, Literal::Kind::null);
  EXPECT_EQ(values.literals[3].number, 20);
  EXPECT_EQ(values.literals[4].text, "BA");
  EXPECT_EQ(values.literals[5].kind, Literal::Kind::null);
}

TEST(InsertValues, TakesTheTextsOfThisLibrary) {
  InsertValues values;
  for (const char* text :
       {"INSERT INTO "
        "storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES(1,'1871-01-07','FI',1,2,3,4,5)",
        "INSERT INTO storico (dtEstr,ruota,estr1)VALUES('2026-01-01','BA',5)", "insert into t values(1)",
        "INSERT INTO t VALUES ('')"})
    EXPECT_TRUE(recognise_insert(text, Syntax{.bracket_names = true}, values)) << text;
}

TEST(InsertValues, LeavesEverythingElseToTheEngine) {
  InsertValues values;
  for (const char* text : {"",
                           "SELECT 1",
                           "INSERT INTO t(a)VALUES",
                           "INSERT INTO t(a)VALUES()",
                           "INSERT INTO t(a)VALUES(1",
                           "INSERT INTO t(a)VALUES(1),",
                           "INSERT INTO t(a)VALUES(1)x",
                           "INSERT INTO t(a)VALUES(1);",
                           "INSERT INTO t(a)VALUES(1+1)",
                           "INSERT INTO t(a)VALUES(-1)",
                           "INSERT INTO t(a)VALUES(1.5)",
                           "INSERT INTO t(a)VALUES(1e3)",
                           "INSERT INTO t(a)VALUES('it''s')",
                           "INSERT INTO t(a)VALUES('a\\\\b')",
                           "INSERT INTO t(a)VALUES('open)",
                           "INSERT INTO t(a)VALUES(1),(1,2)",
                           "INSERT INTO t(a)VALUES(nullx)",
                           "INSERT INTO t(a)VALUES(1 2)",
                           "INSERT INTO t(a)VALUES(1234567890123456789)",
                           "INSERT INTO t(a)VALUES(x'00')",
                           "INSERT INTO t(a)VALUES((1))",
                           "INSERT OR IGNORE INTO t(a)VALUES(1)",
                           "INSERT INTO t(a) SELECT 1",
                           "REPLACE INTO t(a)VALUES(1)",
                           "INSERT INTO [t](a)VALUES(1)",
                           "INSERT INTO t(a)VALUES(1) RETURNING id",
                           "INSERT INTO t(a)VALUES(\"x\")"})
    EXPECT_FALSE(recognise_insert(text, Syntax{.bracket_names = true}, values)) << text;
  using namespace std::string_view_literals;
  EXPECT_FALSE(recognise_insert("INSERT INTO t(a)VALUES('a\0b')"sv, Syntax{.bracket_names = true}, values));
}

}  // namespace
}  // namespace dorvane
