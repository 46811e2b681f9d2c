#include "dorvane/statement.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace dorvane {
namespace {

constexpr Syntax syntax{.backtick_names = true, .bracket_names = true};

TEST(Statement, PairsOfBackslashesInLiteralsBecomeOne) {
  struct Row {
    const char* given;
    const char* expected;
  };
  for (const Row& row :
       {Row{R"(SELECT 'a\\b')", R"(SELECT 'a\b')"}, Row{R"(SELECT 'a\b')", R"(SELECT 'a\b')"},
        Row{R"(SELECT 'a\\\b')", R"(SELECT 'a\\b')"}, Row{R"(SELECT '\\\\')", R"(SELECT '\\')"},
        Row{R"(SELECT 'it''s\\', "x\\y" -- \\)", R"(SELECT 'it''s\', "x\\y" -- \\)"},
        Row{R"(/* \\ */ '\\')", R"(/* \\ */ '\')"}, Row{R"('\\'\\'\\')", R"('\'\\'\')"}, Row{"SELECT 1", "SELECT 1"}})
    EXPECT_EQ(undouble_backslashes(row.given, syntax), row.expected) << row.given;
}

TEST(Statement, KnowsTheWholesaleDelete) {
  for (const char* text : {"DELETE FROM storico", "delete  from\tSTORICO ;", "DELETE /* all */ FROM storico -- done"})
    EXPECT_TRUE(empties_the_archive(text, syntax)) << text;
  for (const char* text : {"DELETE FROM storico WHERE id=1", "DELETE FROM ruote", "DELETE FROM storico;;", "", "DELETE",
                           "DELETE FROM 'storico'"})
    EXPECT_FALSE(empties_the_archive(text, syntax)) << text;
}

TEST(Statement, LikeIsRewrittenWithItsPattern) {
  struct Row {
    const char* given;
    const char* expected;
  };
  for (const Row& row :
       {Row{"a LIKE '%x%'", "a ILIKE '%x%' C"},
        Row{"a not like'x' AND b Like 'y'", "a not ILIKE'x' C AND b ILIKE 'y' C"},
        Row{"a LIKE 'x' ESCAPE '!'", "a ILIKE 'x' ESCAPE '!'"}, Row{"a LIKE b", "a ILIKE b"},
        Row{"t.like='like'", "t.like='like'"}, Row{"a LIKE /* like */ 'x'", "a ILIKE /* like */ 'x' C"},
        Row{"unlikely = 'x'", "unlikely = 'x'"}})
    EXPECT_EQ(rewrite_like(row.given, syntax, "ILIKE", " C"), row.expected) << row.given;
}

TEST(Statement, IsShownByItsBeginning) {
  EXPECT_EQ(in_statement(""), "");
  EXPECT_EQ(in_statement("SELECT 1"), "; in: SELECT 1");
  EXPECT_EQ(in_statement(std::string(160, 'x')), "; in: " + std::string(160, 'x'));
  EXPECT_EQ(in_statement(std::string(161, 'x')), "; in: " + std::string(160, 'x') + "…");
}

TEST(Statement, ARefusedOneIsNamedWithItsEngine) {
  const automation::RunTimeError error = refused_statement("sqlite", "is empty", " ");
  EXPECT_EQ(error.number(), 5);
  EXPECT_EQ(error.description(), "sqlite: the statement is empty");
  EXPECT_EQ(error.context()->engine, "sqlite");
  EXPECT_EQ(error.context()->statement, " ");
  EXPECT_EQ(error.context()->refusal, automation::Refusal::statement);
}

TEST(Statement, TheLargestValueIsAskedOfPlainNamesOnly) {
  EXPECT_EQ(largest_value("tRicerche", "idRicerca"), "SELECT max(idRicerca) FROM tRicerche");
  for (const auto& [table, column] :
       {std::pair{"a;b", "c"}, {"", "c"}, {"a", ""}, {"a", "1"}, {"a b", "c"}, {"a", "c--"}})
    EXPECT_THROW(largest_value(table, column), automation::RunTimeError) << table << "." << column;
}

}  // namespace
}  // namespace dorvane
