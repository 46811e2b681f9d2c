#include "dorvane/insert_values.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "automation/error.h"

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

using Names = std::vector<std::string_view>;
using Values = std::vector<Literal>;

/// The statement of these rows, or the number of the error.
std::string text_of(std::string_view table, const Names& columns, const Values& values) {
  try {
    return insert_text(insert_head({table, columns, values}), values, columns.size());
  } catch (const automation::RunTimeError& error) {
    return std::to_string(error.number());
  }
}

TEST(InsertText, SaysTheSameAsTheValues) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view table;
    Names columns;
    Values values;
    const char* expected;
  } rows[] = {{"t", {"a"}, {Literal::of(7)}, "INSERT INTO t(a)VALUES(7)"},
              {"t", {"a"}, {Literal::of(-7)}, "INSERT INTO t(a)VALUES(-7)"},
              {"t_1", {"a", "B"}, {Literal::of("x"), {}}, "INSERT INTO t_1(a,B)VALUES('x',NULL)"},
              {"t", {"a"}, {Literal::of("it's"), Literal::of("")}, "INSERT INTO t(a)VALUES('it''s'),('')"},
              {"t", {"a"}, {Literal::of("a\\b")}, "INSERT INTO t(a)VALUES('a\\b')"},
              {"t", {"a", "b"}, {Literal::of(1)}, "5"},
              {"t", {}, {Literal::of(1)}, "5"},
              {"t(a)VALUES(1);--", {"a"}, {Literal::of(1)}, "5"},
              {"", {"a"}, {Literal::of(1)}, "5"},
              {"t", {"a)VALUES((SELECT 1"}, {Literal::of(1)}, "5"},
              {"t", {"a"}, {Literal::of("a\0b"sv)}, "5"}};
  for (const auto& row : rows) EXPECT_EQ(text_of(row.table, row.columns, row.values), row.expected) << row.table;
}

TEST(InsertText, IsRecognisedAsItsValues) {
  const Names columns{"n", "t"};
  const Values values{Literal::of(1), Literal::of("x"), {}, Literal::of("")};
  const std::string text = insert_text("INSERT INTO t(n,t)VALUES", values, columns.size());
  InsertValues read;
  ASSERT_TRUE(recognise_insert(text, Syntax{.bracket_names = true}, read));
  EXPECT_EQ(read.head, insert_head({"t", columns, values}));
  ASSERT_EQ(read.literals.size(), values.size());
  for (size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(read.literals[i].kind, values[i].kind) << i;
    EXPECT_EQ(read.literals[i].number, values[i].number) << i;
    EXPECT_EQ(read.literals[i].text, values[i].text) << i;
  }
}

}  // namespace
}  // namespace dorvane
