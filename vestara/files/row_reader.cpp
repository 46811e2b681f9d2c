#include "vestara/files/row_reader.h"

#include <charconv>
#include <cstdint>
#include <limits>

#include "automation/date.h"
#include "automation/text.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

/// Digits only; nothing for anything else and beyond 32 bits.
std::optional<int32_t> whole_number(std::string_view text) {
  int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || text.front() == '-') return std::nullopt;
  return number;
}

std::optional<int16_t> read_contest(std::string_view field) {
  field = automation::trim(field);
  if (field.empty()) return int16_t{0};
  const auto number = whole_number(field);
  if (!number || *number > std::numeric_limits<int16_t>::max()) return std::nullopt;
  return static_cast<int16_t>(*number);
}

}  // namespace

std::string read_numbers(const std::array<std::string_view, 5>& fields, std::array<int8_t, 5>& numbers) {
  for (size_t i = 0; i < fields.size(); ++i) {
    const std::string_view field = automation::trim(fields[i]);
    const auto number = whole_number(field);
    if (!number) return shown(field) + " is no number";
    if (*number < 1 || *number > number_count) return "number " + std::to_string(*number) + " is not one of 1 to 90";
    numbers[i] = static_cast<int8_t>(*number);
    for (size_t j = 0; j < i; ++j)
      if (numbers[j] == numbers[i]) return "number " + std::to_string(*number) + " comes twice";
  }
  return {};
}

std::optional<int32_t> parse_day(std::string_view text) {
  const auto date = automation::parse_date(text);
  if (!date || date->has_time()) return std::nullopt;
  // A midnight without a date lies on day zero too.
  if (date->day() == 0 && text.find("1899") == std::string_view::npos) return std::nullopt;
  return date->day();
}

std::optional<int32_t> RowReader::day_of(std::string_view text) {
  if (text == last_date_ && !text.empty()) return last_day_;
  const auto day = parse_day(automation::trim(text));
  if (!day) return std::nullopt;
  last_date_ = text;
  last_day_ = *day;
  return day;
}

std::optional<DrawRow> RowReader::read(const RowFields& fields, std::string& reason) {
  const auto day = day_of(fields.date);
  if (!day) {
    reason = shown(fields.date) + " is no date (" + std::string(date_forms) + ")";
    return std::nullopt;
  }
  const auto wheel = wheel_named(fields.wheel);
  if (!wheel) {
    reason = shown(fields.wheel) + " is no wheel (" + wheel_choices() + ")";
    return std::nullopt;
  }
  const auto contest = read_contest(fields.contest);
  if (!contest) {
    reason = "contest " + shown(fields.contest) + " is no number of 1 to 32767";
    return std::nullopt;
  }
  DrawRow row{*day, *contest, *wheel, {}};
  reason = read_numbers(fields.numbers, row.numbers);
  if (!reason.empty()) return std::nullopt;
  return row;
}

}  // namespace vestara
