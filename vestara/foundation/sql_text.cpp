#include "vestara/foundation/sql_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>

#include "automation/coercion.h"
#include "automation/date.h"
#include "automation/text.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"

namespace vestara {
namespace {

using automation::Date;
using automation::Variant;

std::string doubled(std::string_view text, char mark) {
  std::string result;
  result.reserve(text.size() + 8);
  for (const char c : text) {
    result += c;
    if (c == mark) result += mark;
  }
  return result;
}

std::string joined(std::string_view left, std::string_view word, std::string_view right) {
  std::string result(left);
  if (!left.empty() && !right.empty()) result += word;
  result += right;
  return result;
}

std::string clock_text(Date moment, char separator, Seconds seconds) {
  const automation::CivilTime parts = moment.civil();
  std::array<char, 40> text{};
  int length = std::snprintf(text.data(), text.size(), "%02d%c%02d", parts.hour, separator, parts.minute);
  if (seconds == Seconds::shown)
    length += std::snprintf(text.data() + length, text.size() - static_cast<size_t>(length), "%c%02d", separator,
                            parts.second);
  return {text.data(), static_cast<size_t>(length)};
}

/// A value under a display pattern: dates and numbers as the date they stand for, other texts as they are.
template <class Pattern>
std::string formatted(const Variant& value, Pattern pattern) {
  if (value.is_empty()) return {};
  if (const auto date = automation::date_in(value)) return pattern(*date);
  if (automation::is_numeric(value)) return pattern(Date::from_serial(automation::to_double(value)));
  return automation::to_text(value);
}

std::string day_text(Date date) {
  const automation::CivilTime parts = date.civil();
  std::array<char, 40> text{};
  const int length = std::snprintf(text.data(), text.size(), "%02d/%02d/%04d", parts.day, parts.month, parts.year);
  return {text.data(), static_cast<size_t>(length)};
}

std::string literal(const std::optional<Date>& date, const std::optional<Date>& time) {
  std::string body;
  if (date) body = automation::iso_day(*date);
  if (date && time) body += ' ';
  if (time) body += clock_text(*time, ':', Seconds::shown);
  if (body.empty()) return "NULL";
  std::string text = "'" + body + "'";
  // A clock with points has no place in a literal.
  std::replace(text.begin(), text.end(), '.', ':');
  return text;
}

}  // namespace

std::string sqlDateTime(const Variant& date_part, const Variant& time_part) {
  // Without a value to stand for, an object is the error of the member that got it, not that of a literal.
  if (date_part.is_object() || time_part.is_object())
    return sqlDateTime(automation::to_plain(date_part), automation::to_plain(time_part));
  return trapped("mFunctions.sqlDateTime()", std::string(),
                 [&] { return literal(automation::date_in(date_part), automation::date_in(time_part)); });
}

std::string SAPEX(std::string& value) {
  if (!automation::is_blank(value)) value = doubled(doubled(value, '\''), '\\');
  return value;
}

Variant SAPEX(Variant& value) {
  return trapped("mDB.SAPEX()", Variant(), [&] {
    if (value.is_null()) return value;
    std::string text = automation::to_text(value);
    if (!automation::is_blank(text)) value = Variant(SAPEX(text));
    return value;
  });
}

std::string SqlAnd(std::string_view left, std::string_view right) { return joined(left, " AND ", right); }
std::string SqlOr(std::string_view left, std::string_view right) { return joined(left, " OR ", right); }

WheelFilter formatted_wheels(std::string_view wheels) {
  return trapped("mDB.FormatRuoteToSql()", WheelFilter(), [&] { return WheelFilter::listed(wheels); });
}

std::string FormatRuoteToSql(std::string_view wheels, WheelChoice choice) {
  return trapped("mDB.FormatRuoteToSql()", std::string(), [&] {
    if (choice == WheelChoice::listed) return WheelFilter::listed(wheels).quoted();
    std::string list;
    const auto tables = wheel_tables();
    for (int32_t wheel = 1; wheel <= wheel_count; ++wheel) list += "'" + tables->alias_of(wheel) + "',";
    list.pop_back();
    return list;
  });
}

Variant DT_READ(const Variant& date, const Variant& time, std::string_view default_text, Seconds seconds) {
  return trapped("mDB.DT_READ()", Variant(), [&]() -> Variant {
    const auto clock = [&](Date moment) { return clock_text(moment, '.', seconds); };
    std::string text;
    if (!date.is_null()) text = formatted(date, day_text);
    if (!date.is_null() && !time.is_null()) text += "  ";
    if (!time.is_null()) text += formatted(time, clock);
    if (!automation::is_blank(text)) return text;
    return automation::is_blank(default_text) ? Variant("") : Variant(default_text);
  });
}

std::string where_clause(std::string_view condition) {
  return automation::is_blank(condition) ? std::string() : " WHERE " + std::string(condition);
}

std::string day_literal(const std::optional<Date>& day) { return literal(day, std::nullopt); }

std::string date_clause(std::string_view prefix, const DateBound& bound) {
  return bound.is_set() ? automation::concatenated({prefix, day_literal(bound.day()), ")"}) : std::string();
}

std::string period_condition(std::string_view column, const DateBound& from, const DateBound& to) {
  const std::string prefix = "(" + std::string(column);
  return SqlAnd(date_clause(prefix + " >=", from), date_clause(prefix + " <=", to));
}

std::string in_parentheses(std::string_view condition) {
  return automation::is_blank(condition) ? std::string() : automation::concatenated({"(", condition, ")"});
}

}  // namespace vestara
