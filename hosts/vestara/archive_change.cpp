#include "hosts/vestara/archive_change.h"

#include <algorithm>
#include <iterator>

#include "hosts/vestara/archive_rows.h"
#include "hosts/vestara/shown_text.h"
#include "hosts/vestara/wheel_names.h"

namespace vestara::host {
namespace {

/// Any strict order in which equal draws meet.
bool differs_before(const DrawRow& left, const DrawRow& right) {
  return comes_before(left, right) || (same_place(left, right) && left.numbers < right.numbers);
}

bool has_day(const std::vector<DrawRow>& rows, int32_t day) {
  return std::binary_search(rows.begin(), rows.end(), DrawRow{day, 0, 0, {}},
                            [](const DrawRow& left, const DrawRow& right) { return left.day < right.day; });
}

std::string text_of(const DrawRow& row) {
  std::string text = shown_day(row.day) + " ";
  text += wheel_code(row.wheel);
  for (const int8_t number : row.numbers) text += " " + std::to_string(number);
  return text;
}

/// One line for a date that goes away whole, one for every row that goes away alone.
std::vector<std::string> lines_of(const ArchiveChange& change) {
  std::vector<std::string> lines;
  for (auto row = change.gone.begin(); row != change.gone.end();) {
    const auto next_day =
        std::find_if(row, change.gone.end(), [&](const DrawRow& other) { return other.day != row->day; });
    if (std::binary_search(change.dates.begin(), change.dates.end(), row->day))
      lines.push_back(shown_day(row->day) + ", the whole draw (" + counted(static_cast<size_t>(next_day - row), "row") +
                      ")");
    else
      std::transform(row, next_day, std::back_inserter(lines), text_of);
    row = next_day;
  }
  return lines;
}

}  // namespace

ArchiveChange compare_draws(const std::vector<DrawRow>& held, const std::vector<DrawRow>& rows) {
  ArchiveChange change;
  change.held = held.size();
  std::set_difference(held.begin(), held.end(), rows.begin(), rows.end(), std::back_inserter(change.gone),
                      differs_before);
  change.added = rows.size() - (held.size() - change.gone.size());
  for (const DrawRow& row : change.gone)
    if ((change.dates.empty() || change.dates.back() != row.day) && !has_day(rows, row.day))
      change.dates.push_back(row.day);
  return change;
}

HeldDraws held_draws(const ArchiveSession& session) {
  HeldDraws held;
  held.blank = read_draws(session, WheelOrder::by_enumerator, [&](const DrawRow& row) {
    held.rows.push_back(row);
    return true;
  });
  if (!std::is_sorted(held.rows.begin(), held.rows.end(), differs_before))
    std::sort(held.rows.begin(), held.rows.end(), differs_before);
  return held;
}

ArchiveChange compare_held(const HeldDraws& held, const std::vector<DrawRow>& rows) {
  ArchiveChange change = compare_draws(held.rows, rows);
  change.held += held.blank;
  change.gone_blank = held.blank;
  return change;
}

void warn_of_gone(std::ostream& err, const ArchiveChange& change, const std::string& verb) {
  if (change.gone_rows() == 0) return;
  err << "vestara: warning: " << counted(change.gone_rows(), "row") << " of the archive " << verb
      << " away, the file does not have them\n";
  const auto lines = lines_of(change);
  for (size_t i = 0; i < std::min(lines.size(), most_named); ++i) err << "  " << lines[i] << "\n";
  if (lines.size() > most_named) err << "  and " << lines.size() - most_named << " more\n";
  if (change.gone_blank != 0) err << "  " << counted(change.gone_blank, "row") << " without a whole draw\n";
}

}  // namespace vestara::host
