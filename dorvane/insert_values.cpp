#include "dorvane/insert_values.h"

#include <algorithm>
#include <utility>

#include "automation/error.h"
#include "automation/text.h"

namespace dorvane {
namespace {

constexpr size_t longest_head = 400;
constexpr int most_digits = 18;

/// The length of "INSERT INTO name(name,…) VALUES" at the front, or 0.
size_t head_length(std::string_view statement, const Syntax& syntax) {
  const std::string_view front = statement.substr(0, longest_head);
  size_t words = 0;
  for (size_t at = 0; at < front.size();) {
    const Token token = next_token(front.substr(at), syntax);
    at += token.text.size();
    if (token.kind == TokenKind::blank) continue;
    if (token.kind == TokenKind::word) {
      ++words;
      if (words == 1 && !is(token, "insert")) return 0;
      if (words == 2 && !is(token, "into")) return 0;
      if (words > 2 && is(token, "values")) return at;
    } else if (words < 3 || (token.text != "(" && token.text != ")" && token.text != ",")) {
      return 0;
    }
  }
  return 0;
}

/// Reads the tuples; `at` runs over the text behind the head.
class TupleReader {
 public:
  TupleReader(std::string_view text, InsertValues& result)
      : at_(text.data()), end_(at_ + text.size()), result_(result) {}

  bool read_all() {
    for (;;) {
      if (!read_tuple()) return false;
      skip_blanks();
      if (at_ == end_) return true;
      if (*at_++ != ',') return false;
      skip_blanks();
    }
  }

 private:
  bool read_tuple() {
    skip_blanks();
    if (at_ == end_ || *at_++ != '(') return false;
    const size_t before = result_.literals.size();
    for (;;) {
      skip_blanks();
      if (!read_literal()) return false;
      skip_blanks();
      if (at_ == end_) return false;
      const char mark = *at_++;
      if (mark == ')') break;
      if (mark != ',') return false;
    }
    const size_t count = result_.literals.size() - before;
    if (result_.columns == 0) result_.columns = count;
    return count == result_.columns;
  }

  bool read_literal() {
    if (at_ == end_) return false;
    if (*at_ == '\'') return read_text();
    if (*at_ >= '0' && *at_ <= '9') return read_number();
    return read_null();
  }

  bool read_text() {
    const char* begin = ++at_;
    for (; at_ != end_ && *at_ != '\''; ++at_)
      if (*at_ == '\\' || *at_ == '\0') return false;
    if (at_ == end_) return false;
    const auto length = static_cast<size_t>(at_ - begin);
    ++at_;
    if (at_ != end_ && *at_ == '\'') return false;
    result_.literals.push_back(Literal::of(std::string_view(begin, length)));
    return true;
  }

  bool read_number() {
    int64_t value = 0;
    int digits = 0;
    for (; at_ != end_ && *at_ >= '0' && *at_ <= '9'; ++at_, ++digits) {
      if (digits == most_digits) return false;
      value = value * 10 + (*at_ - '0');
    }
    result_.literals.push_back(Literal::of(value));
    return true;
  }

  bool read_null() {
    if (end_ - at_ < 4 || !automation::equal_ignoring_case(std::string_view(at_, 4), "null")) return false;
    at_ += 4;
    result_.literals.push_back({});
    return true;
  }

  void skip_blanks() {
    while (at_ != end_ && *at_ == ' ') ++at_;
  }

  const char* at_;
  const char* end_;
  InsertValues& result_;
};

}  // namespace

bool recognise_insert(std::string_view statement, const Syntax& syntax, InsertValues& result) {
  const size_t head = head_length(statement, syntax);
  if (head == 0) return false;
  result.head = statement.substr(0, head);
  result.columns = 0;
  result.literals.clear();
  return TupleReader(statement.substr(head), result).read_all();
}

namespace {

void append_literal(std::string& text, const Literal& value) {
  switch (value.kind) {
    case Literal::Kind::null:
      text += "NULL";
      break;
    case Literal::Kind::whole:
      text += std::to_string(value.number);
      break;
    case Literal::Kind::text:
      text += '\'';
      for (const char c : value.text) text.append(c == '\'' ? 2 : 1, c);
      text += '\'';
  }
}

void require_word(std::string_view name) {
  const bool plain = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return automation::is_digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
  });
  if (!plain)
    throw automation::invalid_call(
        automation::concatenated({"rows go into tables and columns with plain names, not ", name}));
}

}  // namespace

std::string insert_head(const vestara::NewRows& rows) {
  require_word(rows.table);
  if (rows.columns.empty() || rows.values.size() % rows.columns.size() != 0)
    throw automation::invalid_call("the values make no whole rows: each needs one for every column");
  for (const Literal& value : rows.values)
    if (value.text.find('\0') != std::string_view::npos) throw automation::invalid_call("a text holds a NUL character");
  std::string head = automation::concatenated({"INSERT INTO ", rows.table});
  char joint = '(';
  for (const std::string_view column : rows.columns) {
    require_word(column);
    head.append(1, joint).append(column);
    joint = ',';
  }
  return head += ")VALUES";
}

std::string insert_text(std::string head, std::span<const Literal> values, size_t columns) {
  constexpr size_t usual_value = 8;
  std::string text = std::move(head);
  text.reserve(text.size() + values.size() * usual_value);
  for (size_t i = 0; i < values.size(); ++i) {
    const bool begins = i % columns == 0;
    text += begins ? (i == 0 ? "(" : "),(") : ",";
    append_literal(text, values[i]);
  }
  return text += ')';
}

}  // namespace dorvane
