#include "dorvane/tokens.h"

#include <gtest/gtest.h>

#include <string>

#include "dorvane/sqlite/dialect.h"
#ifndef _WIN32
#include "dorvane/mariadb/dialect.h"
#include "dorvane/postgresql/dialect.h"
#endif

namespace dorvane {
namespace {

/// The tokens that mean something, between bars; what one engine alone reads so in braces.
std::string cut(std::string_view text, const Syntax& syntax) {
  std::string result;
  for (const Token& token : tokens_of(text, syntax)) {
    const bool unusual = token.kind == TokenKind::unusual;
    result.append(result.empty() ? "" : "|").append(unusual ? "{" : "").append(token.text).append(unusual ? "}" : "");
  }
  return result;
}

TEST(Tokens, CoverTheTextWithoutGaps) {
  for (const std::string_view text : {"SELECT 'it''s' , \"a\"\"b\",[c d],`e` -- x\n/* y */ FROM t", "'open", "/* open",
                                      "a.b>=12.5", "\\", "''''", "è=1", "$", "$a", "E'", "U&", "1e", "/*/", "[", "#"})
    for (const Syntax& syntax : {Syntax{}, sqlite::syntax, Syntax{.nested_comments = true, .prefixed_texts = true},
                                 Syntax{.blank_after_dashes = true, .hash_comments = true}}) {
      std::string joined;
      for (std::string_view rest = text; !rest.empty();) {
        const Token token = next_token(rest, syntax);
        ASSERT_FALSE(token.text.empty()) << text;
        joined += token.text;
        rest.remove_prefix(token.text.size());
      }
      EXPECT_EQ(joined, text);
    }
}

struct Row {
  const char* text;
  const char* tokens;
};

TEST(Tokens, OfEveryEngine) {
  for (const Row& row : {Row{"'it''s' x", "'it''s'|x"}, Row{"'a''", "'a''"}, Row{"1.5into t", "1.5|into|t"},
                         Row{"1e5into", "1e5|into"}, Row{"1e-5x", "1e-5|x"}, Row{"5into", "5|into"}, Row{"1e", "1|e"},
                         Row{"a$b.c", "a$b|.|c"}, Row{"\"a\"\"b\"c", "\"a\"\"b\"|c"}, Row{R"('\' x)", R"('\'|x)"},
                         Row{"a-- b\nc", "a|c"}, Row{"a/*'*/b", "a|b"}, Row{"/*/ a */b", "b"}}) {
    EXPECT_EQ(cut(row.text, sqlite::syntax), row.tokens) << row.text;
#ifndef _WIN32
    EXPECT_EQ(cut(row.text, postgresql::syntax), row.tokens) << row.text;
    EXPECT_EQ(cut(row.text, mariadb::syntax), row.tokens) << row.text;
#endif
  }
}

TEST(Tokens, OfSqlite) {
  for (const Row& row : {Row{"[a'b] x", "[a'b]|x"}, Row{"`a``b` c", "`a``b`|c"}, Row{"1--1\n2", "1|2"},
                         Row{"a#'b'", "a|#|'b'"}, Row{"/*a/*b*/c*/", "c|*|/"}, Row{"--a\rb\nc", "c"},
                         Row{"E'a\\'b'", "E|'a\\'|b|'"}, Row{"$a$'$a$", "$|a$|'$a$"}, Row{"/*!1*/2", "2"}})
    EXPECT_EQ(cut(row.text, sqlite::syntax), row.tokens) << row.text;
}

#ifndef _WIN32
TEST(Tokens, OfPostgresql) {
  for (const Row& row :
       {Row{"[a'b'] x", "[|a|'b'|]|x"}, Row{"`a'b'", "`|a|'b'"}, Row{"1--1\n2", "1|2"}, Row{"a#'b'", "a|#|'b'"},
        Row{"/*a/*b*/c*/d", "d"}, Row{"--a\rb\nc", "b|c"}, Row{R"(E'a\'b' c)", R"({E'a\'b'}|c)"},
        Row{"eE'a'", "eE|'a'"}, Row{"$a$'$b$;$a$ c", "{$a$'$b$;$a$}|c"}, Row{"$$'$$ c", "{$$'$$}|c"},
        Row{"$1 c", "$|1|c"}, Row{"u&\"a\"\"b\" c", "{u&\"a\"\"b\"}|c"}, Row{"U&'a' c", "{U&'a'}|c"},
        Row{"U& 'a'", "U|&|'a'"}, Row{"/*!1*/2", "2"}, Row{"a$b$'c'", "a$b$|'c'"}})
    EXPECT_EQ(cut(row.text, postgresql::syntax), row.tokens) << row.text;
}

TEST(Tokens, OfMariadb) {
  for (const Row& row :
       {Row{"1--1\n2", "1|-|-|1|2"}, Row{"1-- 1\n2", "1|2"}, Row{"1--\x01 1\n2", "1|2"}, Row{"1--\t1\n2", "1|2"},
        Row{"1--", "1"}, Row{"1--- 1\n2", "1|-|2"}, Row{"1# '\n2'", "1|2|'"}, Row{"1--'#'2", "1|-|-|'#'|2"},
        Row{"/*a/*b*/c*/", "c|*|/"}, Row{"--a\rb\nc", "-|-|a|b|c"}, Row{"[a'b'", "[|a|'b'"},
        Row{"`a``'`'b'", "`a``'`|'b'"}, Row{"1 /*!50000 INTO*/ 2", "1|{/*!50000 INTO*/}|2"},
        Row{"/*M!2*/", "{/*M!2*/}"}, Row{"-- /*!1*/\n2", "2"}})
    EXPECT_EQ(cut(row.text, mariadb::syntax), row.tokens) << row.text;
}
#endif

TEST(Tokens, TriviaIsBlanksCommentsAndSemicolons) {
  for (const char* text : {"", " \n;", "; -- end", "/* a */ ;"}) EXPECT_TRUE(is_trivia(text, sqlite::syntax)) << text;
  for (const char* text : {"; SELECT 1", "x", "'"}) EXPECT_FALSE(is_trivia(text, sqlite::syntax)) << text;
}

}  // namespace
}  // namespace dorvane
