#include "tests/support/analytic_oracle.h"

#include <algorithm>
#include <set>

namespace testing_support {

namespace {

using Cells = std::set<std::pair<std::string, int32_t>>;  // wheel, number

/// Those that `seen` does not hold yet, joined by "."; a number that comes out twice in the row counts once.
std::string new_numbers(const ArchiveRow& row, Cells& seen) {
  std::string text;
  for (const auto& number : row.numbers)
    if (seen.insert({row.wheel, *number}).second) text += (text.empty() ? "" : ".") + std::to_string(*number);
  return text;
}

int32_t newer_dates(const Archive& draws, automation::Date date) {
  std::set<int32_t> days;
  for (const auto& row : draws)
    if (row.date > date) days.insert(row.date.day());
  return static_cast<int32_t>(days.size());
}

}  // namespace

std::string analytic_line(automation::Date date, const std::string& wheel, int32_t enumerator,
                          const std::string& numbers, int32_t delay) {
  return automation::date_to_text(date) + " " + wheel + " " + std::to_string(enumerator) + ": " + numbers + " after " +
         std::to_string(delay);
}

AnalyticTable analytic_table_of(const Archive& archive, automation::Date today) {
  Archive draws;
  for (const auto& row : archive)
    if (is_complete(row) == true && row.date.day() >= today.day() - 730) draws.push_back(row);
  std::ranges::stable_sort(draws, [](const auto& a, const auto& b) { return a.date > b.date; });
  AnalyticTable table;
  Cells seen;
  for (const auto& row : draws) {
    table.stopped = seen.size() == 990;
    if (table.stopped) break;
    for (const auto& number : row.numbers)
      if (const int32_t error = error_in(row.wheel, number)) return {.error = error};
    const std::string numbers = new_numbers(row, seen);
    if (!numbers.empty())
      table.lines.push_back(
          analytic_line(row.date, row.wheel, enumerator_of(row.wheel), numbers, newer_dates(draws, row.date)));
  }
  return table;
}

}  // namespace testing_support
