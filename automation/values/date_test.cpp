#include "automation/date.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>

#include "tests/support/random.h"
#include "tests/support/values.h"

namespace automation {
namespace {

using testing_support::day;
using testing_support::error_of;
using testing_support::moment;

constexpr int32_t first_day = -657434;  // 1 January 100
constexpr int32_t last_day = 2958465;   // 31 December 9999

TEST(Date, DaysOfKnownDates) {
  const struct {
    int32_t year, month, day, serial;
  } rows[] = {{1899, 12, 30, 0},       {1899, 12, 31, 1},      {1899, 12, 29, -1},      {1900, 1, 1, 2},
              {1900, 2, 28, 60},       {1900, 3, 1, 61},       {1970, 1, 1, 25569},     {2000, 1, 1, 36526},
              {2000, 2, 29, 36585},    {2024, 2, 29, 45351},   {2026, 11, 15, 46341},   {1871, 1, 7, -10584},
              {1582, 10, 15, -115858}, {100, 1, 1, first_day}, {9999, 12, 31, last_day}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.serial);
    EXPECT_EQ(day_from_civil(row.year, row.month, row.day), row.serial);
    EXPECT_EQ(civil_from_day(row.serial), (CivilTime{row.year, row.month, row.day, 0, 0, 0}));
    EXPECT_EQ(day(row.year, row.month, row.day), Date::from_day(row.serial));
    EXPECT_EQ(Date::from_serial(row.serial).day(), row.serial);
  }
}

int32_t days_in_month(int32_t year, int32_t month) {
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  if (month == 2) return leap ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

TEST(Date, EveryDayOfEveryYearThereAndBack) {
  CivilTime expected{100, 1, 1, 0, 0, 0};
  for (int32_t serial = first_day; serial <= last_day; ++serial) {
    const CivilTime got = civil_from_day(serial);
    if (got != expected) FAIL() << serial << " is " << testing::PrintToString(got);
    if (day_from_civil(got.year, got.month, got.day) != serial) FAIL() << serial;
    if (++expected.day <= days_in_month(expected.year, expected.month)) continue;
    expected.day = 1;
    if (++expected.month <= 12) continue;
    expected.month = 1;
    ++expected.year;
  }
  EXPECT_EQ(expected.year, 10000);
}

TEST(Date, FractionCountsForwardAlsoBeforeDayZero) {
  const struct {
    double serial;
    CivilTime parts;
  } rows[] = {{0.25, {1899, 12, 30, 6, 0, 0}},      {-1.25, {1899, 12, 29, 6, 0, 0}},
              {-1.75, {1899, 12, 29, 18, 0, 0}},    {46341.5, {2026, 11, 15, 12, 0, 0}},
              {-10584.5, {1871, 1, 7, 12, 0, 0}},   {-657434.75, {100, 1, 1, 18, 0, 0}},
              {2958465.5, {9999, 12, 31, 12, 0, 0}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.serial);
    EXPECT_EQ(Date::from_serial(row.serial).civil(), row.parts);
    EXPECT_EQ(moment(row.parts).serial(), row.serial);
    EXPECT_TRUE(Date::from_serial(row.serial).has_time());
  }
  EXPECT_EQ(Date::from_serial(-0.25).civil(), (CivilTime{1899, 12, 30, 6, 0, 0}));
  EXPECT_FALSE(Date::from_serial(-2).has_time());
}

TEST(Date, EverySecondOfADayThereAndBack) {
  for (const int32_t whole : {first_day, -1, 0, 46341, last_day}) {
    CivilTime parts = civil_from_day(whole);
    for (int32_t second = 0; second < 86400; ++second) {
      parts.hour = second / 3600, parts.minute = second / 60 % 60, parts.second = second % 60;
      if (moment(parts).civil() != parts) FAIL() << testing::PrintToString(parts);
    }
  }
}

TEST(Date, FractionsOfASecondAreCut) {
  const struct {
    double serial;
    CivilTime parts;
  } rows[] = {{46341 + 86399.7 / 86400, {2026, 11, 15, 23, 59, 59}},
              {46341 + 86399.999999 / 86400, {2026, 11, 15, 23, 59, 59}},
              {std::nextafter(46342.0, 0), {2026, 11, 15, 23, 59, 59}},
              {46341 + 36855.4 / 86400, {2026, 11, 15, 10, 14, 15}},
              {46341 + 36855.6 / 86400, {2026, 11, 15, 10, 14, 15}},
              {46341 + 0.999999 / 86400, {2026, 11, 15, 0, 0, 0}},
              {46341 + 1e-9 / 86400, {2026, 11, 15, 0, 0, 0}},
              {std::nextafter(1.0, 0), {1899, 12, 30, 23, 59, 59}},
              {1e-300, {1899, 12, 30, 0, 0, 0}},
              {-1e-300, {1899, 12, 30, 0, 0, 0}},
              {std::nextafter(-1.0, 0), {1899, 12, 30, 23, 59, 59}},
              {std::nextafter(-1.0, -2), {1899, 12, 29, 0, 0, 0}},
              {std::nextafter(-2.0, 0), {1899, 12, 29, 23, 59, 59}},
              {-10584 - 86399.7 / 86400, {1871, 1, 7, 23, 59, 59}},
              {-10584 - 36855.6 / 86400, {1871, 1, 7, 10, 14, 15}},
              {std::nextafter(-657435.0, 0), {100, 1, 1, 23, 59, 59}},
              {std::nextafter(2958466.0, 0), {9999, 12, 31, 23, 59, 59}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.serial);
    const auto date = Date::from_serial(row.serial);
    EXPECT_EQ(date.civil(), row.parts);
    EXPECT_EQ(date, moment(row.parts));
    EXPECT_EQ(date_to_text(date), date_to_text(moment(row.parts)));
    EXPECT_EQ(iso_day(date), iso_day(Date::from_day(date.day())));
  }
  EXPECT_FALSE(Date::from_serial(46341 + 0.9 / 86400).has_time());
}

/// A serial as other programs make one: a day, and the parts of the time added one after the other.
double added_up(int32_t whole, const CivilTime& parts) {
  const double sign = whole < 0 ? -1 : 1;
  double serial = whole;
  serial += sign * parts.hour / 24;
  serial += sign * parts.minute / 1440;
  serial += sign * parts.second / 86400;
  return serial;
}

TEST(Date, TheDayOfAnyFractionIsItsWholePart) {
  testing_support::Random random(12);
  for (int32_t turn = 0; turn < 200'000; ++turn) {
    const int32_t whole = first_day + static_cast<int32_t>(random.below(last_day - first_day + 1));
    const double fraction = static_cast<double>(random.below(1U << 20U)) / (1U << 20U);
    const double serial = whole < 0 ? whole - fraction : whole + fraction;
    const auto date = Date::from_serial(serial);
    CivilTime parts = date.civil();
    if (date.day() != whole || iso_day(date) != iso_day(Date::from_day(whole))) FAIL() << serial;
    if (Date::from_serial(date.serial()) != date || moment(parts) != date) FAIL() << serial;
    const int32_t second = parts.hour * 3600 + parts.minute * 60 + parts.second;
    if (second != static_cast<int32_t>(fraction * 86400)) FAIL() << serial;
    if (Date::from_serial(added_up(whole, parts)) != date) FAIL() << serial;
  }
}

TEST(Date, OrderIsTheOrderOfTime) {
  const double rows[] = {-657434, -2.0, -1.0, -1.25, -1.75, 0.0, 0.25, 1.0, 2958465.5};
  for (size_t i = 0; i + 1 < std::size(rows); ++i)
    EXPECT_LT(Date::from_serial(rows[i]), Date::from_serial(rows[i + 1])) << rows[i];
  EXPECT_EQ(Date::from_serial(1.5), Date::from_serial(1.5));
  EXPECT_GT(Date::from_serial(-1.75), Date::from_serial(-1.25));
}

TEST(Date, PartsThatNameNoMoment) {
  const CivilTime rows[] = {
      {2023, 2, 29}, {1900, 2, 29}, {2026, 4, 31},          {2026, 0, 1},           {2026, 13, 1},
      {2026, 1, 0},  {2026, 1, 32}, {2026, -1, 1},          {2026, 1, 1, 24, 0, 0}, {2026, 1, 1, -1, 0, 0},
      {99, 12, 31},  {10000, 1, 1}, {2026, 1, 1, 0, 60, 0}, {2026, 1, 1, 0, 0, 60}, {2026, 1, 1, 0, -1, 0},
      {0, 1, 1},     {-5, 1, 1},    {2026, 1, 1, 0, 0, -1}};
  for (const auto& row : rows) EXPECT_FALSE(Date::from_civil(row)) << testing::PrintToString(row);
  EXPECT_FALSE(Date::from_civil(2026, 2, 30));
}

TEST(Date, SerialOutsideTheYearsIsOverflow) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const double serial : {2958466.0, -657435.0, 1e300, infinity, -infinity})
    EXPECT_EQ(error_of([&] { Date::from_serial(serial); }), 6) << serial;
}

TEST(ParseDate, Accepts) {
  const struct {
    const char* text;
    CivilTime expected;
  } rows[] = {{"15/11/2026", {2026, 11, 15, 0, 0, 0}},
              {"15-11-2026", {2026, 11, 15, 0, 0, 0}},
              {"15.11.2026", {2026, 11, 15, 0, 0, 0}},
              {"2026/11/15", {2026, 11, 15, 0, 0, 0}},
              {"2026-11-15", {2026, 11, 15, 0, 0, 0}},
              {"2026.11.15", {2026, 11, 15, 0, 0, 0}},
              {"1/2/2003", {2003, 2, 1, 0, 0, 0}},
              {"2003/2/1", {2003, 2, 1, 0, 0, 0}},
              {"01/02/2003", {2003, 2, 1, 0, 0, 0}},
              {"29/02/2024", {2024, 2, 29, 0, 0, 0}},
              {"07/01/1871", {1871, 1, 7, 0, 0, 0}},
              {"31/12/9999", {9999, 12, 31, 0, 0, 0}},
              {"1/1/0100", {100, 1, 1, 0, 0, 0}},
              {"15/11/2026 10:14", {2026, 11, 15, 10, 14, 0}},
              {"15/11/2026 10:14:16", {2026, 11, 15, 10, 14, 16}},
              {"15/11/2026 10.14.16", {2026, 11, 15, 10, 14, 16}},
              {"15/11/2026 10.14", {2026, 11, 15, 10, 14, 0}},
              {"15/11/2026T10:14:16", {2026, 11, 15, 10, 14, 16}},
              {"2026-11-15T10:14", {2026, 11, 15, 10, 14, 0}},
              {"15/11/2026 1:2:3", {2026, 11, 15, 1, 2, 3}},
              {"15/11/2026 0:00:00", {2026, 11, 15, 0, 0, 0}},
              {"15/11/2026 23:59:59", {2026, 11, 15, 23, 59, 59}},
              {"10:14:16", {1899, 12, 30, 10, 14, 16}},
              {"10:14", {1899, 12, 30, 10, 14, 0}}};
  for (const auto& row : rows) {
    const auto date = parse_date(row.text);
    ASSERT_TRUE(date) << row.text;
    EXPECT_EQ(date->civil(), row.expected) << row.text;
  }
}

TEST(ParseDate, Refuses) {
  // clang-format off
  const char* rows[] = {
    "", " ", "x", "5", "46341", "46341.5", "-1", "15", "2026", "15/11", "11/2026", "15/11/26", "26/11/15", "1/1/1",
    "15/11/026", "15/11/12026", "1/1/0099", "31/04/2026", "29/02/2023", "29/02/1900", "13/13/2026", "11/15/2026",
    "2026/15/11", "2026-11-31", "0/1/2026", "1/0/2026", "00/00/0000", "32/1/2026", "15//2026", "/11/2026", "15/11/",
    "15/11/2026x", "x15/11/2026", "15/11/2026 x", "15/11/2026 10:14x", "2026-11-15Z", "2026-11-15T10:14:16Z",
    "2026-11-15T", "15/11/2026 ", " 15/11/2026", "15/11/2026  10:14", "15/11/2026 25:00", "15/11/2026 24:00",
    "15/11/2026 10:60", "15/11/2026 10:14:60", "15/11/2026 10", "15/11/2026 10:", "24:00", "10:60", "10:14:60", "10:",
    ":14", "10:14:16:17", "10:14 PM", "10.14", "10:14.16", "10.14:16", "15/11/2026 10:14.16",
    "15/11/2026 10.14:16", "-1/11/2026", "+1/11/2026", "1/-1/2026", "15 nov 2026", "15/nov/2026",
    "15\t11\t2026", "15/11/2026\n", "15/11/2026/1", "15:11:2026", "NULL"};
  // clang-format on
  for (const auto* row : rows) EXPECT_FALSE(parse_date(row)) << '"' << row << '"';
}

TEST(DateText, ShowsTheTimeOfDayOnlyWhenThereIsOne) {
  const struct {
    CivilTime parts;
    const char *text, *iso;
  } rows[] = {{{2026, 11, 15}, "15/11/2026", "2026-11-15"},
              {{2026, 11, 15, 10, 14, 16}, "15/11/2026 10:14:16", "2026-11-15"},
              {{2026, 1, 2, 0, 0, 1}, "02/01/2026 00:00:01", "2026-01-02"},
              {{1871, 1, 7}, "07/01/1871", "1871-01-07"},
              {{1899, 12, 29, 6, 0, 0}, "29/12/1899 06:00:00", "1899-12-29"},
              {{1899, 12, 30, 6, 0, 0}, "30/12/1899 06:00:00", "1899-12-30"},
              {{100, 1, 1}, "01/01/0100", "0100-01-01"}};
  for (const auto& row : rows) {
    EXPECT_EQ(date_to_text(moment(row.parts)), row.text);
    EXPECT_EQ(iso_day(moment(row.parts)), row.iso);
    EXPECT_EQ(parse_date(row.text), moment(row.parts)) << row.text;
  }
}

TEST(ParseIso, Accepts) {
  const struct {
    const char* text;
    CivilTime expected;
  } rows[] = {{"2026-11-15", {2026, 11, 15, 0, 0, 0}},
              {"0100-01-01", {100, 1, 1, 0, 0, 0}},
              {"2026-11-15 10:14:16", {2026, 11, 15, 10, 14, 16}},
              {"2026-11-15T10:14:16", {2026, 11, 15, 10, 14, 16}},
              {"2026-11-15 10:14:16.999", {2026, 11, 15, 10, 14, 16}}};
  for (const auto& row : rows) {
    const auto date = parse_iso(row.text);
    ASSERT_TRUE(date) << row.text;
    EXPECT_EQ(date->civil(), row.expected) << row.text;
  }
}

TEST(ParseIso, Refuses) {
  const char* rows[] = {"",
                        "2026-1-5",
                        "15/11/2026",
                        "2026-02-30",
                        "2026-11-15x",
                        "2026/11/15",
                        " 2026-11-15",
                        "2026-11-15 10:14",
                        "2026-11-15 24:00:00",
                        "2026-11-15 10:14:16x",
                        "2026-11-15 10:14:16.",
                        "2026-11-15 10:14:16.x",
                        "2026-11-15 10:14:16.5x",
                        "2026-11-15 10:14:60",
                        "2026-11",
                        "10:14:16",
                        "2026-11-15 1:02:03",
                        "0099-01-01",
                        "-026-11-15"};
  for (const auto* row : rows) EXPECT_FALSE(parse_iso(row)) << '"' << row << '"';
}

TEST(Now, IsLocalAndToTheSecond) {
  const auto local = [] {
    const std::time_t seconds = std::time(nullptr);
    const std::tm* parts = std::localtime(&seconds);
    return moment({parts->tm_year + 1900, parts->tm_mon + 1, parts->tm_mday, parts->tm_hour, parts->tm_min,
                   std::min(parts->tm_sec, 59)});
  };
  const Date before = local();
  const Date date = now();
  const Date after = local();
  EXPECT_LE(before, date);
  EXPECT_LE(date, after);
  EXPECT_EQ(moment(date.civil()), date);
}

}  // namespace
}  // namespace automation
