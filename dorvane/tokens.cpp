#include "dorvane/tokens.h"

#include <algorithm>

#include "automation/text.h"

namespace dorvane {
namespace {

bool is_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool is_control(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool begins_word(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool is_word(char c) { return begins_word(c) || is_digit(c) || c == '$'; }
bool is_tag(char c) { return begins_word(c) || is_digit(c); }

char at(std::string_view text, size_t place) { return place < text.size() ? text[place] : '\0'; }

template <class Matches>
size_t run_length(std::string_view text, Matches matches, size_t from = 0) {
  const auto* const end = std::find_if_not(text.begin() + from, text.end(), matches);
  return static_cast<size_t>(end - text.begin());
}

/// Up to the closing mark, where a doubled mark stands for itself, and a backslash in front takes its meaning away
/// where the engine says so.
size_t quoted_length(std::string_view text, size_t open, bool backslash_escapes = false) {
  const char mark = text[open];
  for (size_t i = open + 1; i < text.size(); ++i) {
    if (backslash_escapes && text[i] == '\\') {
      ++i;
      continue;
    }
    if (text[i] != mark) continue;
    if (at(text, i + 1) != mark) return i + 1;
    ++i;
  }
  return text.size();
}

size_t length_to(std::string_view text, std::string_view end, size_t from) {
  const auto found = text.find(end, from);
  return found == std::string_view::npos ? text.size() : found + end.size();
}

size_t nested_comment_length(std::string_view text) {
  int depth = 0;
  for (size_t i = 0; i + 1 < text.size(); ++i) {
    const std::string_view pair = text.substr(i, 2);
    if (pair != "/*" && pair != "*/") continue;
    depth += pair == "/*" ? 1 : -1;
    ++i;
    if (depth == 0) return i + 1;
  }
  return text.size();
}

/// "12", "1.5", "1e-5": what follows without a blank is a word of its own, as it is to the engine that reads most.
size_t number_length(std::string_view text) {
  size_t length = run_length(text, is_digit);
  if (at(text, length) == '.' && is_digit(at(text, length + 1))) length = run_length(text, is_digit, length + 1);
  if ((at(text, length) | 0x20) != 'e') return length;
  const bool sign = at(text, length + 1) == '+' || at(text, length + 1) == '-';
  const size_t digits = length + (sign ? 2 : 1);
  return is_digit(at(text, digits)) ? run_length(text, is_digit, digits) : length;
}

/// The length of $tag$…$tag$ at the front, or 0.
size_t dollar_length(std::string_view text) {
  if (is_digit(at(text, 1))) return 0;
  const size_t tag = run_length(text, is_tag, 1);
  return at(text, tag) == '$' ? length_to(text, text.substr(0, tag + 1), tag + 1) : 0;
}

/// The length of E'…', U&'…' or U&"…" at the front, or 0.
size_t prefixed_length(std::string_view text) {
  const char first = static_cast<char>(text.front() | 0x20);
  if (first == 'e' && at(text, 1) == '\'') return quoted_length(text, 1, true);
  if (first == 'u' && at(text, 1) == '&' && (at(text, 2) == '\'' || at(text, 2) == '"')) return quoted_length(text, 2);
  return 0;
}

bool begins_line_comment(std::string_view text, const Syntax& syntax) {
  if (text.front() == '#') return syntax.hash_comments;
  if (!text.starts_with("--")) return false;
  return !syntax.blank_after_dashes || text.size() == 2 || is_blank(text[2]) || is_control(text[2]);
}

Token line_comment(std::string_view text, const Syntax& syntax) {
  const auto end = text.find_first_of(syntax.return_ends_comment ? "\r\n" : "\n");
  return {TokenKind::comment, text.substr(0, end == std::string_view::npos ? end : end + 1)};
}

Token block_comment(std::string_view text, const Syntax& syntax) {
  const bool executed = syntax.executed_comments && (text.starts_with("/*!") || text.starts_with("/*M!"));
  return {executed ? TokenKind::unusual : TokenKind::comment,
          text.substr(0, syntax.nested_comments ? nested_comment_length(text) : length_to(text, "*/", 2))};
}

}  // namespace

Token next_token(std::string_view text, const Syntax& syntax) {
  const auto token = [text](TokenKind kind, size_t length) { return Token{kind, text.substr(0, length)}; };
  const char first = text.front();
  if (is_blank(first)) return token(TokenKind::blank, run_length(text, is_blank));
  if (is_digit(first)) return token(TokenKind::number, number_length(text));
  if (syntax.prefixed_texts)
    if (const size_t length = first == '$' ? dollar_length(text) : prefixed_length(text); length != 0)
      return token(TokenKind::unusual, length);
  if (begins_word(first)) return token(TokenKind::word, run_length(text, is_word));
  if (first == '\'') return token(TokenKind::literal, quoted_length(text, 0));
  if (first == '"' || (first == '`' && syntax.backtick_names))
    return token(TokenKind::quoted_name, quoted_length(text, 0));
  if (first == '[' && syntax.bracket_names) return token(TokenKind::quoted_name, length_to(text, "]", 1));
  if (begins_line_comment(text, syntax)) return line_comment(text, syntax);
  if (text.starts_with("/*")) return block_comment(text, syntax);
  return token(TokenKind::symbol, 1);
}

bool is(const Token& token, std::string_view word) { return automation::equal_ignoring_case(token.text, word); }

bool is_one_of(const Token& token, std::initializer_list<std::string_view> words) {
  return token.kind == TokenKind::word &&
         std::any_of(words.begin(), words.end(), [&](std::string_view word) { return is(token, word); });
}

bool is_silent(const Token& token) { return token.kind == TokenKind::blank || token.kind == TokenKind::comment; }
bool is_name(const Token& token) { return token.kind == TokenKind::word || token.kind == TokenKind::quoted_name; }

std::string_view bare_name(const Token& token) {
  const bool quoted = token.kind != TokenKind::word && token.text.size() >= 2;
  return quoted ? token.text.substr(1, token.text.size() - 2) : token.text;
}

std::vector<Token> tokens_of(std::string_view statement, const Syntax& syntax) {
  std::vector<Token> tokens;
  while (!statement.empty()) {
    const Token next = next_token(statement, syntax);
    if (!is_silent(next)) tokens.push_back(next);
    statement.remove_prefix(next.text.size());
  }
  return tokens;
}

Token first_word(std::string_view statement, const Syntax& syntax) {
  while (!statement.empty()) {
    const Token next = next_token(statement, syntax);
    if (!is_silent(next) && next.text != "(") return next;
    statement.remove_prefix(next.text.size());
  }
  return {TokenKind::blank, statement};
}

bool is_trivia(std::string_view text, const Syntax& syntax) {
  while (!text.empty()) {
    const Token next = next_token(text, syntax);
    if (!is_silent(next) && next.text != ";") return false;
    text.remove_prefix(next.text.size());
  }
  return true;
}

}  // namespace dorvane
