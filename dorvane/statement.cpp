#include "dorvane/statement.h"

#include <algorithm>
#include <array>

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

}  // namespace

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
    if (next.kind != TokenKind::blank && next.kind != TokenKind::comment) tokens.push_back(next);
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
