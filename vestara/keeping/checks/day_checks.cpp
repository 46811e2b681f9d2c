#include "vestara/keeping/checks/day_checks.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "automation/date.h"

namespace vestara {
namespace {

using automation::civil_from_day;
using automation::day_from_civil;

struct StrayDay {
  int16_t year, month, day;
  std::string_view wheel;
};

// The operator's file dates one wheel of these draws otherwise than the rest, and so do all its copies.
constexpr std::array<StrayDay, 5> stray_days{
    {{1948, 5, 1, "NA"}, {1962, 6, 2, "RM"}, {1962, 12, 12, "GE"}, {1964, 4, 25, "FI"}, {1969, 12, 28, "TO"}}};

bool is_known(const DrawDay& day) {
  return std::any_of(stray_days.begin(), stray_days.end(), [&](const StrayDay& stray) {
    return day.wheels == 1 && day.wheel == stray.wheel && day.day == day_from_civil(stray.year, stray.month, stray.day);
  });
}

int32_t year_of(const DrawDay& day) { return civil_from_day(day.day).year; }

void add(DayFinding& finding, const DrawDay& day, int64_t limit = 0) {
  if (finding.count++ != 0) return;
  finding.first = day;
  finding.limit = limit;
}

DayFinding days_in_the_future(const std::vector<DrawDay>& days, int32_t today) {
  DayFinding finding{.fault = DayFault::in_the_future, .first = {}};
  for (const DrawDay& day : days)
    if (day.day > today) add(finding, day);
  return finding;
}

DayFinding days_of_one_wheel(const std::vector<DrawDay>& days) {
  DayFinding finding{.fault = DayFault::one_wheel, .first = {}};
  const bool one_wheel_is_kept = std::all_of(
      days.begin(), days.end(), [&](const DrawDay& day) { return day.wheels <= 1 && day.wheel == days.front().wheel; });
  if (one_wheel_is_kept) return finding;
  for (const DrawDay& day : days)
    if (day.wheels <= 1 && !is_known(day)) add(finding, day);
  return finding;
}

DayFinding days_of_two_contests(const std::vector<DrawDay>& days) {
  DayFinding finding{.fault = DayFault::two_contests, .first = {}};
  for (const DrawDay& day : days)
    if (day.least_contest != day.most_contest) add(finding, day);
  return finding;
}

DayFinding days_out_of_order(const std::vector<DrawDay>& days) {
  DayFinding finding{.fault = DayFault::out_of_order, .first = {}};
  int32_t year = 0;
  int32_t last = 0;
  for (const DrawDay& day : days) {
    if (year_of(day) != year) last = 0;
    year = year_of(day);
    if (day.most_contest == 0) continue;
    if (day.most_contest <= last) add(finding, day, last);
    last = day.most_contest;
  }
  return finding;
}

DayFinding days_beyond_year(const std::vector<DrawDay>& days) {
  constexpr int64_t days_of_a_year = 366;
  std::map<int32_t, int64_t> dates;
  for (const DrawDay& day : days) ++dates[year_of(day)];
  if (!dates.empty()) dates.begin()->second = days_of_a_year;  // what the archive has of it may begin anywhere
  DayFinding finding{.fault = DayFault::beyond_year, .first = {}};
  for (const DrawDay& day : days)
    if (const int64_t most = dates[year_of(day)]; day.most_contest > most) add(finding, day, most);
  return finding;
}

}  // namespace

std::vector<DayFinding> check_days(const std::vector<DrawDay>& days, int32_t today) {
  std::vector<DayFinding> findings{days_in_the_future(days, today), days_of_one_wheel(days), days_of_two_contests(days),
                                   days_out_of_order(days), days_beyond_year(days)};
  std::erase_if(findings, [](const DayFinding& finding) { return finding.count == 0; });
  return findings;
}

int64_t known_stray_days(const std::vector<DrawDay>& days) { return std::count_if(days.begin(), days.end(), is_known); }

}  // namespace vestara
