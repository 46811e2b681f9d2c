#include "dorvane/sqlite/draw_handover.h"

#include <sqlite3.h>

#include <exception>
#include <limits>

#include "dorvane/sqlite/errors.h"

namespace dorvane::sqlite {
namespace {

constexpr int column_count = 8;

/// False when the value is no text.
bool read(sqlite3_value* value, std::string_view& text) {
  if (sqlite3_value_type(value) != SQLITE_TEXT) return false;
  // The text first, its length after: that is the order that converts once.
  const auto* const bytes = static_cast<const char*>(static_cast<const void*>(sqlite3_value_text(value)));
  text = {bytes, bytes ? static_cast<size_t>(sqlite3_value_bytes(value)) : 0};
  return bytes != nullptr;
}

/// Null leaves `number` as it is. False when the value is something else than a number of 32 bits.
template <class Number>
bool read(sqlite3_value* value, Number& number) {
  const int type = sqlite3_value_type(value);
  if (type != SQLITE_INTEGER) return type == SQLITE_NULL;
  const sqlite3_int64 whole = sqlite3_value_int64(value);
  number = static_cast<int32_t>(whole);
  return whole >= std::numeric_limits<int32_t>::min() && whole <= std::numeric_limits<int32_t>::max();
}

bool read(sqlite3_value** values, vestara::StoredDraw& draw) {
  if (!read(values[0], draw.date) || !read(values[1], draw.wheel) || !read(values[2], draw.contest)) return false;
  for (size_t i = 0; i < draw.numbers.size(); ++i)
    if (!read(values[3 + i], draw.numbers[i])) return false;
  return true;
}

void step(sqlite3_context* context, int, sqlite3_value** values) {
  DrawHandover* const handover = *static_cast<DrawHandover**>(sqlite3_user_data(context));
  vestara::StoredDraw draw;
  if (handover && read(values, draw) && handover->take(draw)) return;
  if (handover) handover->refuse();
  sqlite3_result_error(context, "the draw is not taken", -1);
}

void finish(sqlite3_context* context) { sqlite3_result_null(context); }

}  // namespace

bool DrawHandover::take(const vestara::StoredDraw& draw) noexcept {
  try {
    return take_(draw);
  } catch (const std::exception&) {
    return false;
  }
}

void install_draw_handover(sqlite3* database, DrawHandover*& place) {
  require_ok(sqlite3_create_function_v2(database, "vestara_hand_over", column_count, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                        &place, nullptr, &step, &finish, nullptr),
             database);
}

}  // namespace dorvane::sqlite
