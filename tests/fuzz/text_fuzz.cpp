#include <cstdio>
#include <cstdlib>
#include <string>

#include "automation/coercion.h"
#include "automation/date.h"
#include "automation/error.h"
#include "automation/text.h"
#include "dorvane/insert_values.h"
#include "dorvane/literal_insert.h"
#include "dorvane/mariadb/dialect.h"
#include "dorvane/postgresql/dialect.h"
#include "dorvane/sqlite/dialect.h"
#include "dorvane/statement.h"
#include "dorvane/tie_order.h"
#include "tests/support/random.h"
#include "vestara/keeping/history_text.h"

// Random texts through everything that reads text: dates, numbers, code page, update records, statements. Each must
// come back, and what it says must agree with itself.
//   text_fuzz [TEXTS] [SEED]

namespace {

[[noreturn]] void fail(const char* what, const std::string& text) {
  std::fprintf(stderr, "%s does not hold for: %s\n", what, text.c_str());
  std::abort();
}

void check_date(const std::string& text) {
  const auto date = automation::parse_date(text);
  if (!date) return;
  if (automation::parse_date(automation::date_to_text(*date)) != date)
    fail("a date reads back from its own text", text);
}

void check_numbers(const std::string& text) {
  try {
    automation::leading_number(text);
    const auto whole = automation::parse_number(text);
    if (whole && *whole != automation::leading_double(text)) fail("a number is its own leading number", text);
  } catch (const automation::RunTimeError& error) {
    if (error.number() != 6) fail("a number that is too large overflows", text);
  }
}

void check_code_page(const std::string& text) {
  const std::string utf8 = automation::from_code_page_1252(text);
  const std::string bytes = automation::to_code_page_1252(utf8);
  if (bytes.size() != text.size()) fail("every byte stays one byte", text);
}

void check_record(const std::string& text) {
  try {
    const auto record = vestara::parse_history_record(text);
    vestara::history_insert_statement(vestara::history_tuple(record));
  } catch (const automation::RunTimeError& error) {
    if (error.number() != 9 && error.number() != 6) fail("a bad record is error 9 or 6", text);
  }
}

void check_statement(const std::string& text, const dorvane::Syntax& syntax) {
  std::string joined;
  for (std::string_view rest = text; !rest.empty();) {
    const auto token = dorvane::next_token(rest, syntax);
    joined += token.text;
    rest.remove_prefix(token.text.size());
  }
  if (joined != text) fail("tokens cover the statement", text);
  if (dorvane::undouble_backslashes(text, syntax).size() > text.size()) fail("a translation is not longer", text);
  dorvane::tie_term(text, syntax);
  dorvane::empties_the_archive(text, syntax);
  dorvane::InsertValues values;
  if (!dorvane::recognise_insert(text, syntax, values)) return;
  if (values.literals.size() != values.rows() * values.columns) fail("tuples are even", text);
  if (!dorvane::inserts_literals(text, syntax)) fail("what is bound are literals", text);
}

void check_statement(const std::string& text) {
  check_statement(text, dorvane::sqlite::syntax);
  check_statement(text, dorvane::postgresql::syntax);
  check_statement(text, dorvane::mariadb::syntax);
}

}  // namespace

int main(int argc, char** argv) {
  const long texts = argc > 1 ? std::atol(argv[1]) : 20000;
  testing_support::Random random(argc > 2 ? static_cast<uint64_t>(std::atoll(argv[2])) : 1);
  for (long i = 0; i < texts; ++i) {
    check_date(random.text(20, "0123456789/-.: T"));
    check_numbers(random.text(12, "0123456789+-.eE x"));
    check_code_page(random.text(40));
    check_record(random.text(60, "#123/ BAx*'"));
    check_statement(random.text(60, "'\"\\-/*[]`(),;.#$!EU& \nSELECTORDBYFMstorico12"));
    check_statement("INSERT INTO t(a)VALUES(" + random.text(20, "12',()NUL\\ "));
    check_statement("SELECT " + random.text(12, "ruotaDISTNC,. ") + " FROM storico" + random.text(8, " ()as,;") +
                    " ORDER BY " + random.text(14, "dtEsr.count(*)DESCA ,"));
  }
  std::printf("%ld rounds of texts\n", texts);
  return 0;
}
