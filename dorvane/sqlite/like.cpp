#include "dorvane/sqlite/like.h"

#include <sqlite3.h>

#include "automation/text/case_folding.h"
#include "automation/text/utf8.h"
#include "dorvane/sqlite/errors.h"

namespace dorvane::sqlite {
namespace {

/// The character at the front, which goes. A byte that begins none stands for itself.
char32_t cut_character(std::string_view& text) {
  const automation::Utf8Character character = automation::first_character(text);
  text.remove_prefix(character.size);
  return character.code;
}

void like(sqlite3_context* context, int, sqlite3_value** values) {
  const auto text = [](sqlite3_value* value) -> std::string_view {
    const auto* const bytes = static_cast<const char*>(static_cast<const void*>(sqlite3_value_text(value)));
    return {bytes, static_cast<size_t>(sqlite3_value_bytes(value))};
  };
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL) return;
  sqlite3_result_int(context, is_like(text(values[1]), text(values[0])) ? 1 : 0);
}

}  // namespace

bool is_like(std::string_view text, std::string_view pattern) {
  // Only the last "%" can be where a failed match goes on.
  std::string_view retry_text;
  std::string_view retry_pattern;
  bool can_retry = false;
  while (!text.empty()) {
    std::string_view rest = pattern;
    const char32_t wanted = rest.empty() ? 0 : cut_character(rest);
    if (!pattern.empty() && wanted == U'%') {
      pattern = retry_pattern = rest;
      retry_text = text;
      can_retry = true;
      continue;
    }
    std::string_view next = text;
    const char32_t c = cut_character(next);
    if (!pattern.empty() && (wanted == U'_' || automation::small_letter(wanted) == automation::small_letter(c))) {
      pattern = rest;
      text = next;
      continue;
    }
    if (!can_retry) return false;
    cut_character(retry_text);
    text = retry_text;
    pattern = retry_pattern;
  }
  return pattern.find_first_not_of('%') == std::string_view::npos;
}

void install_like(sqlite3* database) {
  require_ok(sqlite3_create_function_v2(database, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                        nullptr, like, nullptr, nullptr, nullptr),
             database);
}

}  // namespace dorvane::sqlite
