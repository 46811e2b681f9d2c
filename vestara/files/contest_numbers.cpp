#include "vestara/files/contest_numbers.h"

#include <algorithm>
#include <iterator>

#include "automation/date.h"

namespace vestara {

std::vector<int32_t> days_of(const std::vector<DrawRow>& rows) {
  std::vector<int32_t> days;
  for (const DrawRow& row : rows)
    if (days.empty() || days.back() != row.day) days.push_back(row.day);
  return days;
}

std::vector<int32_t> united(const std::vector<int32_t>& left, const std::vector<int32_t>& right) {
  std::vector<int32_t> days;
  std::set_union(left.begin(), left.end(), right.begin(), right.end(), std::back_inserter(days));
  return days;
}

void number_contests(std::vector<DrawRow>& rows, const std::vector<int32_t>& days) {
  const auto place_of = [&](int32_t day) {
    const int32_t new_year = automation::day_from_civil(automation::civil_from_day(day).year, 1, 1);
    const auto first = std::lower_bound(days.begin(), days.end(), new_year);
    return static_cast<int16_t>(std::upper_bound(first, days.end(), day) - first);
  };
  int32_t day = 0;
  int16_t place = 0;
  for (DrawRow& row : rows) {
    if (row.contest != 0) continue;
    if (place == 0 || row.day != day) place = place_of(row.day);
    day = row.day;
    row.contest = place;
  }
}

void number_contests(std::vector<DrawRow>& rows) { number_contests(rows, days_of(rows)); }

}  // namespace vestara
