#include "vestara/keeping/copy/value_literal.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "automation/coercion.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/keeping/stored_value.h"

namespace vestara {
namespace {

UnfitValue unfit(const automation::Variant& value, const std::string& why) {
  return UnfitValue("holds " + shown(stored_text(value)) + ", which is " + why);
}

template <class Limits>
bool fits(double number) {
  return number >= std::numeric_limits<Limits>::min() && number <= std::numeric_limits<Limits>::max();
}

bool is_small(ColumnKind kind) { return kind == ColumnKind::small || kind == ColumnKind::number; }

std::string number_literal(const automation::Variant& value, ColumnKind kind) {
  if (value.get_if<automation::Date>() || !automation::is_numeric(value)) throw unfit(value, "no number");
  const double number = automation::to_double(value);
  if (number != std::trunc(number)) throw unfit(value, "no whole number");
  if (!fits<int32_t>(number)) throw unfit(value, "beyond 32 bits");
  if (is_small(kind) && !fits<int16_t>(number)) throw unfit(value, "beyond 16 bits");
  return std::to_string(static_cast<int32_t>(number));
}

std::string quoted(std::string text) { return "'" + SAPEX(text) + "'"; }

std::string date_literal(const automation::Variant& value) {
  const auto date = automation::date_in(value);
  if (!date) throw unfit(value, "no date");
  return quoted(stored_text(*date));
}

std::string text_literal(const automation::Variant& value) {
  const std::string text = stored_text(value);
  if (text.find('\0') != std::string::npos) throw unfit(value, "a text with a NUL character");
  return quoted(text);
}

}  // namespace

std::string value_literal(const automation::Variant& value, ColumnKind kind) {
  if (value.is_null() || value.is_empty()) return "NULL";
  if (holds_date(kind)) return date_literal(value);
  return holds_text(kind) ? text_literal(value) : number_literal(value, kind);
}

}  // namespace vestara
