#include "dorvane/statement.h"

#include <algorithm>
#include <array>

#include "automation/error.h"
#include "automation/text.h"

namespace dorvane {
namespace {

bool is_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_word(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || is_digit(c) ||
         static_cast<unsigned char>(c) >= 0x80;
}

template <class Matches>
size_t run_length(std::string_view text, Matches matches) {
  const auto* end = std::find_if_not(text.begin(), text.end(), matches);
  return static_cast<size_t>(end - text.begin());
}

/// Up to the closing mark, where a doubled mark stands for itself.
size_t quoted_length(std::string_view text, char mark) {
  for (size_t i = 1; i < text.size(); ++i) {
    if (text[i] != mark) continue;
    if (i + 1 < text.size() && text[i + 1] == mark)
      ++i;
    else
      return i + 1;
  }
  return text.size();
}

size_t length_to(std::string_view text, std::string_view end, size_t from) {
  const auto found = text.find(end, from);
  return found == std::string_view::npos ? text.size() : found + end.size();
}

Token token(TokenKind kind, std::string_view text, size_t length) { return {kind, text.substr(0, length)}; }

bool is_silent(const Token& token) { return token.kind == TokenKind::blank || token.kind == TokenKind::comment; }

bool is_one_of(const Token& token, std::initializer_list<std::string_view> words) {
  return token.kind == TokenKind::word && std::any_of(words.begin(), words.end(), [&](std::string_view word) {
           return automation::equal_ignoring_case(token.text, word);
         });
}

/// The first token that means something, parentheses left out.
Token first_word(std::string_view statement) {
  while (!statement.empty()) {
    const Token next = next_token(statement);
    if (!is_silent(next) && next.text != "(") return next;
    statement.remove_prefix(next.text.size());
  }
  return {TokenKind::blank, statement};
}

bool is_identifier(std::string_view name) {
  return !name.empty() && next_token(name).kind == TokenKind::word && next_token(name).text.size() == name.size();
}

automation::RunTimeError not_allowed(std::string_view statement) {
  constexpr size_t shown = 160;
  return {5, automation::concatenated({"not authorized; readers run one SELECT, changes one INSERT, UPDATE or DELETE, "
                                       "transactions have calls of their own; in: ",
                                       statement.substr(0, shown)})};
}

}  // namespace

bool is(const Token& token, std::string_view word) { return automation::equal_ignoring_case(token.text, word); }

Token next_token(std::string_view text) {
  const char first = text.front();
  if (is_blank(first)) return token(TokenKind::blank, text, run_length(text, is_blank));
  if (is_digit(first)) return token(TokenKind::number, text, run_length(text, is_word));
  if (is_word(first)) return token(TokenKind::word, text, run_length(text, is_word));
  if (first == '\'') return token(TokenKind::literal, text, quoted_length(text, '\''));
  if (first == '"' || first == '`') return token(TokenKind::quoted_name, text, quoted_length(text, first));
  if (first == '[') return token(TokenKind::quoted_name, text, length_to(text, "]", 1));
  if (text.starts_with("--")) return token(TokenKind::comment, text, length_to(text, "\n", 2));
  if (text.starts_with("/*")) return token(TokenKind::comment, text, length_to(text, "*/", 2));
  return token(TokenKind::symbol, text, 1);
}

std::vector<Token> tokens_of(std::string_view statement) {
  std::vector<Token> tokens;
  while (!statement.empty()) {
    const Token next = next_token(statement);
    if (!is_silent(next)) tokens.push_back(next);
    statement.remove_prefix(next.text.size());
  }
  return tokens;
}

bool is_trivia(std::string_view text) {
  while (!text.empty()) {
    const Token next = next_token(text);
    const bool silent = next.kind == TokenKind::blank || next.kind == TokenKind::comment || next.text == ";";
    if (!silent) return false;
    text.remove_prefix(next.text.size());
  }
  return true;
}

std::string undouble_backslashes(std::string_view statement) {
  if (statement.find("\\\\") == std::string_view::npos) return std::string(statement);
  std::string result;
  result.reserve(statement.size());
  while (!statement.empty()) {
    const Token next = next_token(statement);
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

void require_reading(std::string_view statement) {
  if (!is_one_of(first_word(statement), {"select", "with", "values"})) throw not_allowed(statement);
  for (const Token& token : tokens_of(statement))
    if (is_one_of(token, {"insert", "update", "delete", "merge", "into", "create", "alter", "drop", "truncate", "call",
                          "grant", "revoke", "copy", "load", "lock", "set_config", "setval", "nextval"}))
      throw not_allowed(statement);
}

void require_change(std::string_view statement) {
  if (!is_one_of(first_word(statement), {"insert", "update", "delete", "replace", "with", "select"}) &&
      !changes_tables(statement))
    throw not_allowed(statement);
}

bool changes_tables(std::string_view statement) {
  return is_one_of(first_word(statement), {"create", "alter", "drop"});
}

std::string rewrite_like(std::string_view statement, std::string_view like, std::string_view behind) {
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
    const Token next = next_token(statement);
    statement.remove_prefix(next.text.size());
    const bool is_like = before.text != "." && is_one_of(next, {"like"});
    result += is_like ? like : next.text;
    if (after_like && next.kind == TokenKind::literal && !is_one_of(first_word(statement), {"escape"}))
      result += behind;
    if (is_silent(next)) continue;
    after_like = is_like;
    before = next;
  }
  return result;
}

std::string largest_value(std::string_view table, std::string_view column) {
  if (!is_identifier(table) || !is_identifier(column))
    throw automation::RunTimeError(
        5, automation::concatenated({"not a table and a column: '", table, "', '", column, "'"}));
  return automation::concatenated({"SELECT max(", column, ") FROM ", table});
}

bool empties_the_archive(std::string_view statement) {
  constexpr size_t longest = 64;
  if (statement.size() > longest) return false;
  std::vector<Token> tokens = tokens_of(statement);
  if (!tokens.empty() && tokens.back().text == ";") tokens.pop_back();
  constexpr std::array<std::string_view, 3> words{"delete", "from", "storico"};
  return std::equal(
      tokens.begin(), tokens.end(), words.begin(), words.end(),
      [](const Token& t, std::string_view word) { return automation::equal_ignoring_case(t.text, word); });
}

}  // namespace dorvane
