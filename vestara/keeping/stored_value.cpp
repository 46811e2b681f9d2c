#include "vestara/keeping/stored_value.h"

#include "automation/coercion.h"

namespace vestara {

std::string stored_text(const automation::Variant& value) {
  if (value.is_null() || value.is_empty()) return {};
  const auto* date = value.get_if<automation::Date>();
  if (!date) return automation::to_text(value);
  constexpr size_t day_length = 10;
  return automation::iso_day(*date) + automation::date_to_text(*date).substr(day_length);
}

}  // namespace vestara
