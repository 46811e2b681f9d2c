#include "dorvane/statement.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace dorvane {
namespace {

TEST(Statement, TokensCoverTheTextWithoutGaps) {
  for (const std::string_view text : {"SELECT 'it''s' , \"a\"\"b\",[c d],`e` -- x\n/* y */ FROM t", "'open", "/* open",
                                      "a.b>=12.5", "\\", "''''", "è=1"}) {
    std::string joined;
    for (std::string_view rest = text; !rest.empty();) {
      const Token token = next_token(rest);
      ASSERT_FALSE(token.text.empty()) << text;
      joined += token.text;
      rest.remove_prefix(token.text.size());
    }
    EXPECT_EQ(joined, text);
  }
}

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
    EXPECT_EQ(undouble_backslashes(row.given), row.expected) << row.given;
}

TEST(Statement, KnowsTheWholesaleDelete) {
  for (const char* text : {"DELETE FROM storico", "delete  from\tSTORICO ;", "DELETE /* all */ FROM storico -- done"})
    EXPECT_TRUE(empties_the_archive(text)) << text;
  for (const char* text : {"DELETE FROM storico WHERE id=1", "DELETE FROM ruote", "DELETE FROM storico;;", "", "DELETE",
                           "DELETE FROM 'storico'"})
    EXPECT_FALSE(empties_the_archive(text)) << text;
}

TEST(Statement, TriviaIsBlanksCommentsAndSemicolons) {
  for (const char* text : {"", " \n;", "; -- end", "/* a */ ;"}) EXPECT_TRUE(is_trivia(text)) << text;
  for (const char* text : {"; SELECT 1", "x", "'"}) EXPECT_FALSE(is_trivia(text)) << text;
}

TEST(Statement, TheWallLetsReadersReadAndChangesChange) {
  const auto passes = [](void (*wall)(std::string_view), const char* text) {
    try {
      wall(text);
      return true;
    } catch (const automation::RunTimeError& error) {
      EXPECT_EQ(error.number(), 5);
      return false;
    }
  };
  struct Row {
    const char* text;
    bool reads;
    bool changes;
  };
  for (const Row& row : {Row{"SELECT 1", true, true},
                         Row{"select 'insert' FROM \"delete\"", true, true},
                         Row{" -- delete\n(SELECT 1)", true, true},
                         Row{"WITH a AS (SELECT 1) SELECT * FROM a", true, true},
                         Row{"VALUES (1)", true, false},
                         Row{"WITH a AS (DELETE FROM storico RETURNING id) SELECT * FROM a", false, true},
                         Row{"SELECT 1 INTO OUTFILE '/x'", false, true},
                         Row{"SELECT setval('s',1)", false, true},
                         Row{"SELECT id FROM storico FOR UPDATE", false, true},
                         Row{"INSERT INTO storico(id)VALUES(1)", false, true},
                         Row{"update storico set id=1", false, true},
                         Row{"DELETE FROM storico", false, true},
                         Row{"CREATE TABLE t(i int)", false, true},
                         Row{"drop table t", false, true},
                         Row{"BEGIN", false, false},
                         Row{"COMMIT", false, false},
                         Row{"SET a=1", false, false},
                         Row{"COPY storico TO '/x'", false, false},
                         Row{"GRANT ALL ON storico TO x", false, false},
                         Row{"", false, false},
                         Row{"-- nothing", false, false}}) {
    EXPECT_EQ(passes(require_reading, row.text), row.reads) << row.text;
    EXPECT_EQ(passes(require_change, row.text), row.changes) << row.text;
  }
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
    EXPECT_EQ(rewrite_like(row.given, "ILIKE", " C"), row.expected) << row.given;
}

TEST(Statement, TheLargestValueIsAskedOfPlainNamesOnly) {
  EXPECT_EQ(largest_value("tRicerche", "idRicerca"), "SELECT max(idRicerca) FROM tRicerche");
  for (const auto& [table, column] :
       {std::pair{"a;b", "c"}, {"", "c"}, {"a", ""}, {"a", "1"}, {"a b", "c"}, {"a", "c--"}})
    EXPECT_THROW(largest_value(table, column), automation::RunTimeError) << table << "." << column;
}

}  // namespace
}  // namespace dorvane
