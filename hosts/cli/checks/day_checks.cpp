#include "hosts/cli/checks/day_checks.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <string_view>

#include "automation/date.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
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

/// Counts the days that a question is true of and keeps the first in words.
class Count {
 public:
  void add(const std::string& example) {
    if (count_++ == 0) example_ = example;
  }
  void report(Findings& findings, const std::string& what, const std::string& remedy) const {
    if (count_ != 0) findings.push_back({what, count_, example_, remedy});
  }

 private:
  int64_t count_ = 0;
  std::string example_;
};

std::string contest_in_words(const DrawDay& day) {
  return shown_day(day.day) + ", contest " + std::to_string(day.most_contest);
}

void find_future(const std::vector<DrawDay>& days, int32_t today, Findings& findings) {
  Count count;
  for (const DrawDay& day : days)
    if (day.day > today) count.add(shown_day(day.day));
  count.report(
      findings, "dates in the future",
      "vestara draw delete DATE, when the date is a slip; vestara draw save DATE … enters the draw under its own");
}

void find_lonely(const std::vector<DrawDay>& days, Findings& findings) {
  const bool one_wheel_is_kept = std::all_of(
      days.begin(), days.end(), [&](const DrawDay& day) { return day.wheels <= 1 && day.wheel == days.front().wheel; });
  if (one_wheel_is_kept) return;
  Count count;
  for (const DrawDay& day : days)
    if (day.wheels <= 1 && !is_known(day)) count.add(shown_day(day.day) + ", wheel " + day.wheel);
  count.report(findings, "dates with one wheel only",
               "complete the draw by vestara draw save DATE …, or put the row under the date of its draw");
}

void find_double(const std::vector<DrawDay>& days, Findings& findings) {
  Count count;
  for (const DrawDay& day : days)
    if (day.least_contest != day.most_contest)
      count.add(shown_day(day.day) + ", contests " + std::to_string(day.least_contest) + " and " +
                std::to_string(day.most_contest));
  count.report(findings, "dates with two contests", "vestara draw save DATE … writes the draw anew, under one number");
}

void find_disorder(const std::vector<DrawDay>& days, Findings& findings) {
  Count count;
  int32_t year = 0;
  int32_t last = 0;
  for (const DrawDay& day : days) {
    if (year_of(day) != year) last = 0;
    year = year_of(day);
    if (day.most_contest == 0) continue;
    if (day.most_contest <= last) count.add(contest_in_words(day) + " behind contest " + std::to_string(last));
    last = day.most_contest;
  }
  count.report(findings, "contest numbers out of order",
               "vestara draw save DATE … writes a draw anew, under its own number");
}

void find_beyond_year(const std::vector<DrawDay>& days, Findings& findings) {
  constexpr int64_t days_of_a_year = 366;
  std::map<int32_t, int64_t> dates;
  for (const DrawDay& day : days) ++dates[year_of(day)];
  if (!dates.empty()) dates.begin()->second = days_of_a_year;  // what the archive has of it may begin anywhere
  Count count;
  for (const DrawDay& day : days)
    if (const int64_t most = dates[year_of(day)]; day.most_contest > most)
      count.add(contest_in_words(day) + " of " + std::to_string(most));
  count.report(findings, "contest numbers beyond the dates of their year",
               "enter the draws that are missing, or write the draw anew: vestara draw save DATE …");
}

}  // namespace

Findings day_findings(const std::vector<DrawDay>& days, int32_t today) {
  Findings findings;
  find_future(days, today, findings);
  find_lonely(days, findings);
  find_double(days, findings);
  find_disorder(days, findings);
  find_beyond_year(days, findings);
  return findings;
}

int64_t known_stray_days(const std::vector<DrawDay>& days) { return std::count_if(days.begin(), days.end(), is_known); }

}  // namespace vestara::host
