#include "dorvane/sqlite/like.h"

#include <sqlite3.h>

#include <array>

#include "dorvane/sqlite/errors.h"

namespace dorvane::sqlite {
namespace {

/// Capitals in a row, and how far their small letters are. In an alternating block every second one is a capital.
struct Capitals {
  char32_t first = 0;
  char32_t last = 0;
  char32_t distance = 0;
  bool alternating = false;
};

// Unicode's simple case mapping of the Latin, Greek and Cyrillic letters of Europe's languages (UnicodeData.txt).
constexpr std::array<Capitals, 15> capitals{{{U'A', U'Z', 32},
                                             {0x00C0, 0x00D6, 32},
                                             {0x00D8, 0x00DE, 32},
                                             {0x0100, 0x012E, 1, true},
                                             {0x0132, 0x0136, 1, true},
                                             {0x0139, 0x0147, 1, true},
                                             {0x014A, 0x0176, 1, true},
                                             {0x0179, 0x017D, 1, true},
                                             {0x0218, 0x021A, 1, true},
                                             {0x0391, 0x03A1, 32},
                                             {0x03A3, 0x03AB, 32},
                                             {0x0400, 0x040F, 80},
                                             {0x0410, 0x042F, 32},
                                             {0x0490, 0x0490, 1},
                                             {0x1E00, 0x1E94, 1, true}}};

char32_t small(char32_t c) {
  for (const Capitals& block : capitals) {
    if (c < block.first) return c;
    if (c > block.last) continue;
    return block.alternating && (c - block.first) % 2 != 0 ? c : c + block.distance;
  }
  return c;
}

/// The character at the front, which goes. A byte that begins none stands for itself.
char32_t cut_character(std::string_view& text) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  const size_t length = lead < 0x80 ? 1 : lead >> 5 == 6 ? 2 : lead >> 4 == 14 ? 3 : lead >> 3 == 30 ? 4 : 1;
  char32_t c = length == 1 ? lead : lead & (0x7FU >> length);
  for (size_t i = 1; i < length; ++i) {
    if (i >= text.size() || byte(i) >> 6 != 2) {
      text.remove_prefix(1);
      return lead;
    }
    c = c << 6 | (byte(i) & 0x3FU);
  }
  text.remove_prefix(length);
  return c;
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
    if (!pattern.empty() && (wanted == U'_' || small(wanted) == small(c))) {
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
