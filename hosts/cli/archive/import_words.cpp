#include "hosts/cli/archive/import_words.h"

#include <algorithm>
#include <vector>

#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

std::string numbers_of(const DrawRow& row) {
  std::string text;
  for (const int8_t number : row.numbers) text += " " + std::to_string(number);
  return text;
}

std::string text_of(const DrawRow& row) {
  return shown_day(row.day) + " " + std::string(wheel_code(row.wheel)) + numbers_of(row);
}

/// One line for the rows of a date, or for a row that stands alone.
std::vector<std::string> lines_of_missing(const std::vector<DrawRow>& rows) {
  std::vector<std::string> lines;
  for (auto row = rows.begin(); row != rows.end();) {
    const auto next_day = std::find_if(row, rows.end(), [&](const DrawRow& other) { return other.day != row->day; });
    lines.push_back(next_day - row == 1
                        ? text_of(*row)
                        : shown_day(row->day) + ", " + counted(static_cast<size_t>(next_day - row), "row"));
    row = next_day;
  }
  return lines;
}

std::vector<std::string> lines_of_changed(const std::vector<ChangedRow>& rows) {
  std::vector<std::string> lines;
  lines.reserve(rows.size());
  for (const ChangedRow& row : rows) lines.push_back(text_of(row.held) + " ->" + numbers_of(row.given));
  return lines;
}

/// A line each, the first twenty.
std::string listed(const std::vector<std::string>& lines) {
  std::string text;
  for (size_t i = 0; i < std::min(lines.size(), most_named); ++i) text += "\n  " + lines[i];
  if (lines.size() > most_named) text += "\n  and " + std::to_string(lines.size() - most_named) + " more";
  return text;
}

/// ", of 1871-01-07" or ", of 1871-01-07 to 1938-12-31"
template <class Row, class DayOf>
std::string range_of(const std::vector<Row>& rows, DayOf day_of) {
  const std::string first = shown_day(day_of(rows.front()));
  const std::string last = shown_day(day_of(rows.back()));
  return " of " + (first == last ? first : first + " to " + last);
}

std::string missing_words(const ImportPlan& plan) {
  return counted(plan.missing.size(), "row") + range_of(plan.missing, [](const DrawRow& row) { return row.day; });
}

std::string changed_words(const ImportPlan& plan) {
  return counted(plan.changed.size(), "row") +
         range_of(plan.changed, [](const ChangedRow& row) { return row.held.day; });
}

bool only_manual_rows_miss(const ImportPlan& plan) {
  return std::all_of(plan.missing.begin(), plan.missing.end(), [&](const DrawRow& row) {
    return std::any_of(plan.manual.begin(), plan.manual.end(),
                       [&](const ManualDraw& draw) { return draw.in_file == InFile::missing && draw.day == row.day; });
  });
}

}  // namespace

std::string refusal_text(const ImportPlan& plan, ImportMode mode, const std::string& file) {
  const std::string replace = "vestara import --replace " + file;
  std::string text = "nothing was changed: ";
  if (!plan.missing.empty()) text += missing_words(plan) + " would go, which the file does not have";
  if (!plan.changed.empty()) text += (plan.missing.empty() ? "" : ", and ") + changed_words(plan) + " would change";
  if (plan.changed.empty() && mode == ImportMode::guarded) {
    text += only_manual_rows_miss(plan) ? "; they were entered by hand, --keep-manual keeps them"
                                        : "; vestara import --add " + file + " keeps everything and adds what is new";
    text += ", " + replace + " takes the file alone";
  } else {
    text += "; " + replace + " takes the file's rows and keeps those of the archive in a file beside it";
  }
  return text + listed(lines_of_missing(plan.missing)) + listed(lines_of_changed(plan.changed));
}

std::string removal_text(const ImportPlan& plan, const std::string& verb) {
  std::string text;
  if (plan.gone != 0) {
    text = counted(plan.gone, "row") + " of the archive " + verb + " away, the file does not have them";
    text += listed(lines_of_missing(plan.missing));
    if (plan.gone > plan.missing.size())
      text += "\n  " + counted(plan.gone - plan.missing.size(), "row") + " without a whole draw";
  }
  if (!plan.changed.empty()) {
    if (!text.empty()) text += "\n";
    text += counted(plan.changed.size(), "row") + " of the archive have other numbers in the file";
    text += listed(lines_of_changed(plan.changed));
  }
  return text;
}

std::string join_text(const ImportPlan& plan) {
  if (!plan.is_joined || plan.action != ImportAction::add || plan.kept == 0) return {};
  return "the file begins later than the archive and agrees with it on " + counted(plan.in_common, "row") + "; " +
         counted(plan.kept, "row") + " that it does not have stay";
}

std::string contest_text(const ImportPlan& plan) {
  if (plan.other_contests == 0 || plan.action != ImportAction::add) return {};
  return counted(plan.other_contests, "row") +
         " have another contest number in the file; they keep the archive's, --replace takes the file's";
}

void warn_of_lost(std::ostream& err, const std::vector<ManualDraw>& manual, const std::string& verb) {
  std::string names;
  size_t lost = 0;
  for (const ManualDraw& draw : manual) {
    if (draw.in_file != InFile::missing) continue;
    if (lost++ < most_named) names.append(names.empty() ? "" : ", ").append(shown_day(draw.day));
  }
  if (lost == 0) return;
  err << "vestara: warning: " << counted(lost, "draw") << " entered by hand " << verb << " away: " << names;
  if (lost > most_named) err << " and " << lost - most_named << " more";
  err << "; --keep-manual keeps what the file does not have\n";
}

}  // namespace vestara::host
