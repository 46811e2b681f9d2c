#include "dorvane/statement.h"

#include <algorithm>
#include <array>
#include <vector>

#include "automation/error.h"
#include "automation/text.h"
#include "vestara/foundation/schema.h"

namespace dorvane {
namespace {

/// A plain name is one to every engine.
bool is_identifier(std::string_view name) {
  constexpr Syntax plain;
  return !name.empty() && next_token(name, plain).kind == TokenKind::word &&
         next_token(name, plain).text.size() == name.size() && name.find('$') == std::string_view::npos;
}

}  // namespace

std::string undouble_backslashes(std::string_view statement, const Syntax& syntax) {
  if (statement.find("\\\\") == std::string_view::npos) return std::string(statement);
  std::string result;
  result.reserve(statement.size());
  while (!statement.empty()) {
    const Token next = next_token(statement, syntax);
    statement.remove_prefix(next.text.size());
    if (next.kind != TokenKind::literal) {
      result += next.text;
      continue;
    }
    for (size_t i = 0; i < next.text.size(); ++i) {
      result += next.text[i];
      if (next.text.substr(i, 2) == "\\\\") ++i;
    }
  }
  return result;
}

bool changes_tables(std::string_view statement, const Syntax& syntax) {
  return is_one_of(first_word(statement, syntax), {"create", "alter", "drop"});
}

std::string rewrite_like(std::string_view statement, const Syntax& syntax, std::string_view like,
                         std::string_view behind) {
  // Most statements have none, and those of an import are long.
  constexpr std::string_view word = "like";
  if (std::search(statement.begin(), statement.end(), word.begin(), word.end(),
                  [](char c, char w) { return (c | 0x20) == w; }) == statement.end())
    return std::string(statement);
  std::string result;
  result.reserve(statement.size() + like.size() + behind.size());
  Token before{TokenKind::blank, {}};
  bool after_like = false;
  while (!statement.empty()) {
    const Token next = next_token(statement, syntax);
    statement.remove_prefix(next.text.size());
    const bool is_like = before.text != "." && is_one_of(next, {"like"});
    result += is_like ? like : next.text;
    if (after_like && next.kind == TokenKind::literal && !is_one_of(first_word(statement, syntax), {"escape"}))
      result += behind;
    if (is_silent(next)) continue;
    after_like = is_like;
    before = next;
  }
  return result;
}

std::string in_statement(std::string_view statement) {
  if (statement.empty()) return {};
  const std::string_view rest = statement.size() > shown_statement ? "…" : "";
  return automation::concatenated({"; in: ", statement.substr(0, shown_statement), rest});
}

automation::RunTimeError refused_statement(std::string_view engine, std::string_view why, std::string_view statement) {
  return automation::invalid_call(automation::concatenated({engine, ": the statement ", why}))
      .with_context({std::string(engine), std::string(statement), automation::Refusal::statement});
}

std::string largest_value(std::string_view table, std::string_view column) {
  if (!is_identifier(table) || !is_identifier(column))
    throw automation::invalid_call(
        automation::concatenated({"not a table and a column: '", table, "', '", column, "'"}));
  return automation::concatenated({"SELECT max(", column, ") FROM ", table});
}

bool empties_the_archive(std::string_view statement, const Syntax& syntax) {
  constexpr size_t longest = 64;
  if (statement.size() > longest) return false;
  std::vector<Token> tokens = tokens_of(statement, syntax);
  if (!tokens.empty() && tokens.back().text == ";") tokens.pop_back();
  constexpr std::array<std::string_view, 3> words{"delete", "from", vestara::draw_table.name};
  return std::equal(tokens.begin(), tokens.end(), words.begin(), words.end(), is);
}

}  // namespace dorvane
