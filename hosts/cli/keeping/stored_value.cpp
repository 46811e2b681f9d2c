#include "hosts/cli/keeping/stored_value.h"

#include "automation/coercion.h"

namespace vestara::host {
namespace {

bool is_absent(const automation::Variant& value) { return value.is_null() || value.is_empty(); }

}  // namespace

std::string stored_text(const automation::Variant& value) {
  if (is_absent(value)) return {};
  const auto* date = value.get_if<automation::Date>();
  if (!date) return automation::to_text(value);
  constexpr size_t day_length = 10;
  return automation::iso_day(*date) + automation::date_to_text(*date).substr(day_length);
}

Cell stored_cell(const automation::Variant& value) {
  if (is_absent(value)) return {};
  if (const auto* number = value.get_if<int32_t>()) return int64_t{*number};
  if (const auto* number = value.get_if<int16_t>()) return int64_t{*number};
  return stored_text(value);
}

}  // namespace vestara::host
