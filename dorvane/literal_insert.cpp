#include "dorvane/literal_insert.h"

#include <algorithm>

#include "automation/error.h"
#include "automation/text.h"
#include "vestara/foundation/schema.h"

namespace dorvane {
namespace {

/// Tokens one by one: the statements of an import are long.
class Reader {
 public:
  Reader(std::string_view rest, const Syntax& syntax) : rest_(rest), syntax_(syntax) { advance(); }

  const Token& now() const { return now_; }
  bool at_end() const { return now_.text.empty(); }
  bool passed_comment() const { return passed_comment_; }

  void advance() {
    do {
      rest_.remove_prefix(now_.text.size());
      now_ = rest_.empty() ? Token{TokenKind::blank, {}} : next_token(rest_, syntax_);
      passed_comment_ = passed_comment_ || now_.kind == TokenKind::comment;
    } while (!rest_.empty() && is_silent(now_));
  }
  /// Passes over the token when it is this one.
  bool take(std::string_view text) {
    const bool taken = is(now_, text);
    if (taken) advance();
    return taken;
  }

 private:
  std::string_view rest_;
  const Syntax& syntax_;
  Token now_{TokenKind::blank, {}};
  bool passed_comment_ = false;
};

/// What may stand between INSERT or REPLACE and the table.
bool precedes_table(const Token& token) {
  return is_one_of(token, {"insert", "replace", "or", "rollback", "abort", "fail", "ignore", "low_priority",
                           "high_priority", "delayed", "into"});
}

/// "table" or "schema.table".
bool take_table(Reader& reader) {
  do {
    if (!is_name(reader.now())) return false;
    reader.advance();
  } while (reader.take("."));
  return true;
}

bool take_columns(Reader& reader) {
  if (!reader.take("(")) return true;
  do {
    if (!is_name(reader.now())) return false;
    reader.advance();
  } while (reader.take(","));
  return reader.take(")");
}

bool take_literal(Reader& reader) {
  const bool sign = reader.take("-") || reader.take("+");
  const TokenKind kind = reader.now().kind;
  const bool text = kind == TokenKind::literal || is(reader.now(), "null");
  if (kind != TokenKind::number && (sign || !text)) return false;
  reader.advance();
  return true;
}

bool take_tuples(Reader& reader) {
  do {
    if (!reader.take("(")) return false;
    do {
      if (!take_literal(reader)) return false;
    } while (reader.take(","));
    if (!reader.take(")")) return false;
  } while (reader.take(","));
  return true;
}

bool is_archive_table(const Token& name) {
  const auto all = vestara::archive_tables();
  return std::any_of(all.begin(), all.end(), [&](const vestara::ArchiveTable& table) {
    return automation::equal_ignoring_case(table.name, bare_name(name));
  });
}

/// The table that an INSERT at this place is about, without its schema.
const Token& target(const std::vector<Token>& tokens, size_t place) {
  while (place + 1 < tokens.size() && precedes_table(tokens[place])) ++place;
  while (place + 2 < tokens.size() && tokens[place + 1].text == ".") place += 2;
  return tokens[place];
}

}  // namespace

bool inserts_literals(std::string_view statement, const Syntax& syntax) {
  Reader reader(statement, syntax);
  while (precedes_table(reader.now())) reader.advance();
  const bool plain = take_table(reader) && take_columns(reader) && reader.take("values") && take_tuples(reader);
  reader.take(";");
  return plain && reader.at_end() && !reader.passed_comment();
}

void require_no_computed_rows(const std::vector<Token>& tokens) {
  for (size_t i = 0; i + 1 < tokens.size(); ++i) {
    // Both are names of functions as well; "UPDATE OR REPLACE" inserts nothing.
    if (!is_one_of(tokens[i], {"insert", "replace"}) || tokens[i + 1].text == "(") continue;
    if (i > 0 && is(tokens[i - 1], "or")) continue;
    const Token& table = target(tokens, i);
    if (is_archive_table(table))
      throw automation::invalid_call(
          automation::concatenated({"rows of ", table.text,
                                    " are inserted as INSERT INTO table(columns) VALUES(…), numbers, texts and NULL"
                                    " only; no expressions, comments or further clauses"}));
  }
}

}  // namespace dorvane
