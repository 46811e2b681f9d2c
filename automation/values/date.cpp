#include "automation/date.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "automation/error.h"
#include "automation/text.h"

namespace automation {
namespace {

constexpr int32_t seconds_per_day = 86400;
constexpr int32_t first_year = 100;
constexpr int32_t last_year = 9999;
// Days from 0000-03-01 to 1899-12-30, where the serial counting starts.
constexpr int32_t epoch_offset = 693899;

bool is_leap(int32_t year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int32_t days_in_month(int32_t year, int32_t month) {
  constexpr std::array<int32_t, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && is_leap(year) ? 29 : days[static_cast<size_t>(month - 1)];
}

/// Reads one group of digits after the other from a text.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool done() const { return rest_.empty(); }
  char peek() const { return rest_.empty() ? '\0' : rest_.front(); }
  void skip() { rest_.remove_prefix(1); }

  /// The digits at the front; their count tells a year from a day.
  struct Group {
    int32_t value = 0;
    size_t digits = 0;
  };
  Group group() {
    Group result;
    while (!rest_.empty() && is_digit(rest_.front()) && result.digits < 5) {
      result.value = result.value * 10 + (rest_.front() - '0');
      ++result.digits;
      rest_.remove_prefix(1);
    }
    return result;
  }

 private:
  std::string_view rest_;
};

bool is_short(const Scanner::Group& group) { return group.digits == 1 || group.digits == 2; }

/// h:m or h:m:s up to the end of the text, with colons or points.
bool read_time(Scanner& text, CivilTime& parts) {
  const auto hour = text.group();
  const char separator = text.peek();
  if (!is_short(hour) || (separator != ':' && separator != '.')) return false;
  text.skip();
  const auto minute = text.group();
  if (!is_short(minute)) return false;
  Scanner::Group second;
  if (!text.done()) {
    if (text.peek() != separator) return false;
    text.skip();
    second = text.group();
    if (!is_short(second) || !text.done()) return false;
  }
  parts.hour = hour.value;
  parts.minute = minute.value;
  parts.second = second.value;
  return true;
}

/// Three groups with one separator; the group of four digits is the year.
bool read_day(Scanner& text, CivilTime& parts) {
  const auto first = text.group();
  const char separator = text.peek();
  if (separator != '/' && separator != '-' && separator != '.') return false;
  text.skip();
  const auto month = text.group();
  if (!is_short(month) || text.peek() != separator) return false;
  text.skip();
  const auto last = text.group();
  const bool year_first = first.digits == 4 && is_short(last);
  const bool year_last = is_short(first) && last.digits == 4;
  if (!year_first && !year_last) return false;
  parts.year = year_first ? first.value : last.value;
  parts.month = month.value;
  parts.day = year_first ? last.value : first.value;
  return true;
}

/// The second of the day that a serial lies in. A serial that was added up from a day, hours, minutes and seconds may
/// end just below the second it means: by half of its last place for each of three additions.
int32_t second_of_day(double serial) {
  const double distance = std::fabs(serial);
  const double last_place = std::nextafter(distance, HUGE_VAL) - distance;
  const double slack = (1.5 * last_place + 1e-15) * seconds_per_day;
  const double seconds = (distance - std::trunc(distance)) * seconds_per_day;
  return std::min(static_cast<int32_t>(seconds + slack), seconds_per_day - 1);
}

CivilTime parts_of(int32_t day, int32_t second) {
  CivilTime parts = civil_from_day(day);
  parts.hour = second / 3600;
  parts.minute = second / 60 % 60;
  parts.second = second % 60;
  return parts;
}

bool looks_like_time_alone(std::string_view text) {
  const auto points = std::string_view(text).find(':');
  if (points != std::string_view::npos) return true;
  // "10.14" is a plain number; only h.m.s is a time with points.
  const auto first = text.find('.');
  return first != std::string_view::npos && text.find('.', first + 1) != std::string_view::npos;
}

}  // namespace

int32_t day_from_civil(int32_t year, int32_t month, int32_t day) {
  const int32_t shifted = month > 2 ? year : year - 1;
  const int32_t cycle = shifted / 400;
  const int32_t year_of_cycle = shifted - cycle * 400;
  const int32_t month_from_march = (month + 9) % 12;
  const int32_t day_of_year = (153 * month_from_march + 2) / 5 + day - 1;
  const int32_t day_of_cycle = year_of_cycle * 365 + year_of_cycle / 4 - year_of_cycle / 100 + day_of_year;
  return cycle * 146097 + day_of_cycle - epoch_offset;
}

CivilTime civil_from_day(int32_t day) {
  const int32_t shifted = day + epoch_offset;
  const int32_t cycle = shifted / 146097;
  const int32_t day_of_cycle = shifted - cycle * 146097;
  const int32_t year_of_cycle =
      (day_of_cycle - day_of_cycle / 1460 + day_of_cycle / 36524 - day_of_cycle / 146096) / 365;
  const int32_t day_of_year = day_of_cycle - (365 * year_of_cycle + year_of_cycle / 4 - year_of_cycle / 100);
  const int32_t month_from_march = (5 * day_of_year + 2) / 153;
  CivilTime parts;
  parts.day = day_of_year - (153 * month_from_march + 2) / 5 + 1;
  parts.month = month_from_march < 10 ? month_from_march + 3 : month_from_march - 9;
  parts.year = cycle * 400 + year_of_cycle + (parts.month <= 2 ? 1 : 0);
  return parts;
}

Date Date::from_serial(double serial) {
  static const double lowest = day_from_civil(first_year, 1, 1);
  static const double beyond = day_from_civil(last_year, 12, 31) + 1.0;
  if (!(serial > lowest - 1.0 && serial < beyond)) throw overflow();
  return *from_civil(parts_of(static_cast<int32_t>(serial), second_of_day(serial)));
}

std::optional<Date> Date::from_civil(const CivilTime& parts) {
  const bool day_is_real = parts.year >= first_year && parts.year <= last_year && parts.month >= 1 &&
                           parts.month <= 12 && parts.day >= 1 && parts.day <= days_in_month(parts.year, parts.month);
  const bool time_is_real = parts.hour >= 0 && parts.hour < 24 && parts.minute >= 0 && parts.minute < 60 &&
                            parts.second >= 0 && parts.second < 60;
  if (!day_is_real || !time_is_real) return std::nullopt;
  const double day = day_from_civil(parts.year, parts.month, parts.day);
  const double time = (parts.hour * 3600 + parts.minute * 60 + parts.second) / double{seconds_per_day};
  return Date(day < 0 ? day - time : day + time);
}

std::optional<Date> Date::from_civil(int32_t year, int32_t month, int32_t day) {
  return from_civil(CivilTime{year, month, day, 0, 0, 0});
}

CivilTime Date::civil() const { return parts_of(day(), second_of_day(serial_)); }

std::partial_ordering Date::operator<=>(const Date& other) const {
  // Before day zero the fraction runs against the sign, so the moments are compared, not the serials.
  const auto moment = [](double serial) {
    const double whole = std::trunc(serial);
    return whole + std::fabs(serial - whole);
  };
  return moment(serial_) <=> moment(other.serial_);
}

std::optional<Date> parse_date(std::string_view text) {
  CivilTime parts;
  Scanner whole(text);
  if (Scanner day = whole; read_day(day, parts)) {
    if (day.done()) return Date::from_civil(parts);
    if (day.peek() != ' ' && day.peek() != 'T') return std::nullopt;
    day.skip();
    return read_time(day, parts) ? Date::from_civil(parts) : std::nullopt;
  }
  parts = CivilTime{};
  if (looks_like_time_alone(text) && read_time(whole, parts)) return Date::from_civil(parts);
  return std::nullopt;
}

std::string date_to_text(Date date) {
  const CivilTime parts = date.civil();
  std::array<char, 64> text{};
  int length = std::snprintf(text.data(), text.size(), "%02d/%02d/%04d", parts.day, parts.month, parts.year);
  if (parts.hour != 0 || parts.minute != 0 || parts.second != 0)
    length += std::snprintf(text.data() + length, text.size() - static_cast<size_t>(length), " %02d:%02d:%02d",
                            parts.hour, parts.minute, parts.second);
  return {text.data(), static_cast<size_t>(length)};
}

std::string iso_day(Date date) {
  const CivilTime parts = date.civil();
  std::array<char, 40> text{};
  const int length = std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", parts.year, parts.month, parts.day);
  return {text.data(), static_cast<size_t>(length)};
}

std::optional<Date> parse_iso(std::string_view text) {
  const auto number = [&](size_t from, size_t count) {
    int32_t value = 0;
    for (size_t i = from; i < from + count; ++i) {
      if (!is_digit(text[i])) return -1;
      value = value * 10 + (text[i] - '0');
    }
    return value;
  };
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  CivilTime parts{number(0, 4), number(5, 2), number(8, 2), 0, 0, 0};
  if (text.size() == 10) return Date::from_civil(parts);
  const bool has_time = text.size() >= 19 && (text[10] == ' ' || text[10] == 'T') && text[13] == ':' && text[16] == ':';
  const bool ends = text.size() == 19 || (text.size() > 20 && text[19] == '.' &&
                                          text.find_first_not_of("0123456789", 20) == std::string_view::npos);
  if (!has_time || !ends) return std::nullopt;
  parts.hour = number(11, 2);
  parts.minute = number(14, 2);
  parts.second = number(17, 2);
  return Date::from_civil(parts);
}

Date now() {
  const std::time_t moment = std::time(nullptr);
  std::tm local{};
#if defined(_WIN32)
  localtime_s(&local, &moment);
#else
  localtime_r(&moment, &local);
#endif
  const int32_t second = local.tm_sec > 59 ? 59 : local.tm_sec;  // a leap second has no place on the clock
  return *Date::from_civil(
      {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, second});
}

}  // namespace automation
