#include <gtest/gtest.h>

#include <string_view>

#include "dorvane/mariadb/dialect.h"
#include "dorvane/postgresql/dialect.h"
#include "dorvane/sqlite/dialect.h"
#include "tests/attacks/bare_engine.h"
#include "tests/support/random.h"

// Where a comment, a text or a name ends is said by the engine. Every statement is asked twice: as it is, and with what
// the lexer takes for comments made blank and for marks inside texts made letters. The answers must be the same.

namespace attacks {
namespace {

using conformance::Engine;
using dorvane::Token;
using dorvane::TokenKind;
using testing_support::Random;

class BoundariesTest : public conformance::BackEnd {
 protected:
  const dorvane::Syntax& syntax() const {
    return GetParam() == Engine::sqlite       ? dorvane::sqlite::syntax
           : GetParam() == Engine::postgresql ? dorvane::postgresql::syntax
                                              : dorvane::mariadb::syntax;
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, BoundariesTest, conformance::engines(), conformance::engine_name);

const std::vector<std::string> silences{" ",     "\n",       "/* x */", "/*'*/", "/* /* */ */", "-- x\n",  "--\n",
                                        "--x\n", "--\r",     "#x\n",    "# '\n", "/*/ */",      "--\t'\n", "/**/",
                                        "--'\n", "--\x01\n", "\r",      "\t",    "-- x\r\n",    "/*\"*/",  "--\x7F'\n"};
const std::vector<std::string> values{"1",
                                      "5",
                                      "'a'",
                                      "'it''s'",
                                      "'a--b'",
                                      "'/*'",
                                      "'#'",
                                      "'\\'",
                                      "'\\\\'",
                                      "''",
                                      "'[a]'",
                                      "'$$'",
                                      "1.5",
                                      "1e5",
                                      "x'41'",
                                      "'a`b'",
                                      "1 AS \"a'b\"",
                                      "1 AS `a'b`",
                                      "1 AS [a'b]",
                                      "1 AS \"a--b\"",
                                      "$$a'b$$",
                                      "$a$'$a$",
                                      "$a$ $b$ $a$",
                                      "E'a\\'b'",
                                      "e'\\\\'",
                                      "U&'a'",
                                      "N'a'",
                                      "(1)",
                                      "-5",
                                      "1-1",
                                      "1--1",
                                      "1- -1",
                                      "1#1",
                                      "7/2",
                                      "'a' 'b'",
                                      "'\"'",
                                      "(ARRAY['['])[1]",
                                      "'*/'",
                                      "4*/**/2",
                                      "'é'"};
const std::string dangerous = "#/*$[]\"`\\;!";

std::string statement_of(Random& random) {
  std::string text = "SELECT ";
  for (size_t i = 1 + random.below(3); i > 0; --i) {
    if (random.one_in(2)) text += random.pick(silences);
    text += random.pick(values);
    if (random.one_in(2)) text += random.pick(silences);
    if (i > 1) text += ",";
  }
  if (random.one_in(3)) text.insert(7 + random.below(text.size() - 6), 1, ("'\"`[]-/*#$\\Ee! \n\r")[random.below(17)]);
  if (random.one_in(6)) text.erase(7 + random.below(text.size() - 7), 1);
  return text;
}

/// A text stays the number that it begins with.
std::string with_letters(std::string_view text) {
  std::string result(text);
  for (size_t i = 0; i < text.size(); ++i)
    if (dangerous.find(text[i]) != std::string::npos || (i > 0 && text.substr(i - 1, 2) == "--")) result[i] = 'z';
  return result;
}

/// $tag$…$tag$ with letters between its ends.
std::string in_dollars(std::string_view text) {
  const size_t mark = text.find('$', 1) + 1;
  const std::string tag(text.substr(0, mark));
  if (text.size() < 2 * mark || !text.ends_with(tag)) return std::string(text);
  return tag + with_letters(text.substr(mark, text.size() - 2 * mark)) + tag;
}

/// A line stays a line. "--" must not come to stand before a blank where it did not.
std::string without_text(std::string_view comment) {
  const bool line = comment.ends_with("\n") || comment.ends_with("\r");
  if (comment.starts_with("--")) return line ? "\n" : " ";
  return line ? "/**/\n" : "/**/";
}

/// A comment, text or name that stops where the statement does, and not before.
bool has_no_end(const Token& token, const dorvane::Syntax& syntax) {
  const std::string longer = std::string(token.text) + "x";
  return dorvane::next_token(longer, syntax).text.size() == longer.size();
}

std::string plain(const Token& token, const dorvane::Syntax& syntax) {
  // That is an error to most.
  if (token.text.starts_with("/*") && has_no_end(token, syntax)) return std::string(token.text);
  if (token.kind == TokenKind::comment) return without_text(token.text);
  if (token.kind == TokenKind::literal) return with_letters(token.text);
  return token.kind == TokenKind::unusual && token.text.front() == '$' ? in_dollars(token.text)
                                                                       : std::string(token.text);
}

/// The statement without comments and dangerous marks; "" for one that is refused whatever its end.
std::string plain(std::string_view statement, const dorvane::Syntax& syntax) {
  std::string result;
  while (!statement.empty()) {
    const Token token = dorvane::next_token(statement, syntax);
    if (token.kind == TokenKind::unusual && token.text.starts_with("/*")) return {};
    result += plain(token, syntax);
    statement.remove_prefix(token.text.size());
  }
  return result;
}

TEST_P(BoundariesTest, AreThoseOfTheEngine) {
  const auto engine = bare_engine(GetParam(), url_);
  Random random(5);
  int taken = 0;
  constexpr int statements = 20000;
  for (int i = 0; i < statements; ++i) {
    const std::string statement = statement_of(random);
    const std::string other = plain(statement, syntax());
    if (other.empty()) continue;
    const std::string answer = engine->answer(statement);
    ASSERT_EQ(with_letters(answer), with_letters(engine->answer(other)))
        << testing::PrintToString(statement) << " as " << testing::PrintToString(other);
    if (answer != "refused") ++taken;
  }
  EXPECT_GT(taken, statements / 10) << "the statements are mostly such as the engine takes";
}

}  // namespace
}  // namespace attacks
