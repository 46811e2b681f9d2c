#include "dorvane/statement.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace dorvane
