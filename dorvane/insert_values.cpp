#include "dorvane/insert_values.h"

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
    result_.literals.push_back({Literal::Kind::text, 0, std::string_view(begin, length)});
    return true;
  }

  bool read_number() {
    int64_t value = 0;
    int digits = 0;
    for (; at_ != end_ && *at_ >= '0' && *at_ <= '9'; ++at_, ++digits) {
      if (digits == most_digits) return false;
      value = value * 10 + (*at_ - '0');
    }
    result_.literals.push_back({Literal::Kind::whole, value, {}});
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

}  // namespace dorvane
