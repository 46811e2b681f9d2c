#pragma once  // installed

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/export.h"

namespace automation {

/// A moment of the proleptic Gregorian calendar, in parts. Months and days count from 1.
struct CivilTime {
  int32_t year = 1899;
  int32_t month = 12;
  int32_t day = 30;
  int32_t hour = 0;
  int32_t minute = 0;
  int32_t second = 0;
  bool operator==(const CivilTime&) const = default;
};

/// An automation date: days since 1899-12-30, the fraction being the time of day. Before that day the
/// whole part counts down while the fraction still counts the hours forward (-1.25 is 1899-12-29 06:00).
/// Years run from 100 to 9999. It holds whole seconds.
class AUTOMATION_API Date {
 public:
  constexpr Date() = default;
  /// The second that the serial lies in: fractions are cut. Error 6 when it lies outside the years 100 to 9999.
  static Date from_serial(double serial);
  /// Nothing when the parts name no real moment or the year is out of range.
  static std::optional<Date> from_civil(const CivilTime& parts);
  static std::optional<Date> from_civil(int32_t year, int32_t month, int32_t day);
  /// A whole day counted from 1899-12-30; the caller guarantees the range.
  static constexpr Date from_day(int32_t day) { return Date(static_cast<double>(day)); }

  constexpr double serial() const { return serial_; }
  /// The whole day, counted from 1899-12-30.
  int32_t day() const { return static_cast<int32_t>(serial_); }
  bool has_time() const { return serial_ != static_cast<double>(day()); }
  /// The same moment in parts.
  CivilTime civil() const;

  std::partial_ordering operator<=>(const Date& other) const;
  bool operator==(const Date& other) const { return std::is_eq(*this <=> other); }

 private:
  constexpr explicit Date(double serial) : serial_(serial) {}
  double serial_ = 0;
};

/// Days since 1899-12-30 of a calendar date, and back. Valid for every year of Date.
/// Method: counting in 400-year cycles of years that begin in March.
AUTOMATION_API int32_t day_from_civil(int32_t year, int32_t month, int32_t day);
AUTOMATION_API CivilTime civil_from_day(int32_t day);

/// Reads a date text: D/M/YYYY or YYYY/M/D with "/", "-" or "." between, an optional time h:m[:s] (points
/// allowed) after one blank or "T"; a time alone lies on day zero. Month and day are never swapped; a year
/// has four digits. Anything else is nothing.
AUTOMATION_API std::optional<Date> parse_date(std::string_view text);

/// "DD/MM/YYYY", followed by " HH:MM:SS" when the time of day is not zero.
AUTOMATION_API std::string date_to_text(Date date);
/// "YYYY-MM-DD".
AUTOMATION_API std::string iso_day(Date date);
/// Reads exactly "YYYY-MM-DD" and an optional " HH:MM:SS" or "THH:MM:SS" (fractions of a second are dropped).
AUTOMATION_API std::optional<Date> parse_iso(std::string_view text);

/// Today's local date and time, to the second.
AUTOMATION_API Date now();

}  // namespace automation
