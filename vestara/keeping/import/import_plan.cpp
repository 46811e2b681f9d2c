#include "vestara/keeping/import/import_plan.h"

#include <algorithm>
#include <iterator>

#include "vestara/files/contest_numbers.h"

namespace vestara {
namespace {

std::vector<int32_t> days_where(const std::vector<ManualDraw>& manual, InFile in_file) {
  std::vector<int32_t> days;
  for (const ManualDraw& draw : manual)
    if (draw.in_file == in_file) days.push_back(draw.day);
  return days;
}

bool holds(const std::vector<int32_t>& days, int32_t day) { return std::binary_search(days.begin(), days.end(), day); }

/// Splits off what lies on the given days.
template <class Row, class DayOf>
std::vector<Row> take_days(std::vector<Row>& rows, const std::vector<int32_t>& days, DayOf day_of) {
  const auto first =
      std::stable_partition(rows.begin(), rows.end(), [&](const Row& row) { return !holds(days, day_of(row)); });
  std::vector<Row> taken(first, rows.end());
  rows.erase(first, rows.end());
  return taken;
}

int32_t day_of_row(const DrawRow& row) { return row.day; }
int32_t day_of_change(const ChangedRow& row) { return row.held.day; }

void append_rows_of(const std::vector<DrawRow>& rows, const std::vector<int32_t>& days, std::vector<DrawRow>& target) {
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(target),
               [&](const DrawRow& row) { return holds(days, row.day); });
}

void append_held(const std::vector<ChangedRow>& changed, std::vector<DrawRow>& target) {
  std::transform(changed.begin(), changed.end(), std::back_inserter(target),
                 [](const ChangedRow& row) { return row.held; });
}

void sort_by_place(std::vector<DrawRow>& rows) { std::stable_sort(rows.begin(), rows.end(), comes_before); }

/// Draws of the archive that the file does not have.
enum class MissingRows { stay, refuse };

/// Everything an import knows; makes the plan in steps.
class Planner {
 public:
  Planner(const HeldDraws& held, const std::vector<DrawRow>& rows)
      : held_(held), rows_(rows), change_(compare_draws(held.rows, rows)) {}

  ImportPlan plan(const std::vector<int32_t>& marked, ImportMode mode, MissingManual missing) {
    plan_.manual = compare_manual(marked, held_.rows, rows_);
    plan_.missing_manual = missing;
    plan_.held = held_.row_count();
    plan_.in_common = change_.equal;
    plan_.other_contests = change_.other_contests;
    if (mode == ImportMode::replace || plan_.held == 0)
      rewrite();
    else
      add(mode, begins_later_and_agrees());
    plan_.old_marks = marked;
    if (plan_.missing_manual == MissingManual::keep)
      std::erase_if(plan_.old_marks, [&](int32_t day) { return holds(absent_, day); });
    return std::move(plan_);
  }

 private:
  bool begins_later_and_agrees() const {
    return !held_.rows.empty() && !rows_.empty() && rows_.front().day > held_.rows.front().day &&
           change_.equal >= enough_in_common;
  }

  /// A draw entered by hand gives way to the file's, whatever the mode.
  void add(ImportMode mode, bool begins_later) {
    const auto missing = mode == ImportMode::add || begins_later ? MissingRows::stay : MissingRows::refuse;
    plan_.is_joined = mode == ImportMode::guarded && begins_later;
    if (missing == MissingRows::stay) plan_.missing_manual = MissingManual::keep;
    absent_ = days_where(plan_.manual, InFile::missing);
    plan_.cleared = days_where(plan_.manual, InFile::different);
    plan_.added = change_.added.size();
    const auto overwritten = take_days(change_.changed, plan_.cleared, day_of_change);
    plan_.removed = take_days(change_.missing, plan_.cleared, day_of_row);
    plan_.rewritten = overwritten.size();
    plan_.gone = plan_.removed.size();
    append_held(overwritten, plan_.removed);
    sort_by_place(plan_.removed);
    plan_.kept = change_.missing.size() + held_.blank.size();
    plan_.changed = std::move(change_.changed);
    if (plan_.missing_manual == MissingManual::keep) take_days(change_.missing, absent_, day_of_row);
    if (missing == MissingRows::refuse) plan_.missing = std::move(change_.missing);
    plan_.action = plan_.changed.empty() && plan_.missing.empty() ? ImportAction::add : ImportAction::refuse;
    take_days(change_.added, plan_.cleared, day_of_row);
    plan_.stored = std::move(change_.added);
    append_rows_of(rows_, plan_.cleared, plan_.stored);
    sort_by_place(plan_.stored);
    number_contests(plan_.stored, united(days_of(held_.rows), days_of(rows_)));
  }

  void rewrite() {
    absent_ = days_where(plan_.manual, InFile::missing);
    plan_.action = ImportAction::rewrite;
    plan_.stored = rows_;
    if (plan_.missing_manual == MissingManual::keep) {
      plan_.stored = with_missing(rows_, held_.rows, plan_.manual);
      plan_.kept = take_days(change_.missing, absent_, day_of_row).size();
    }
    number_contests(plan_.stored);
    plan_.added = change_.added.size();
    plan_.rewritten = change_.changed.size();
    plan_.gone = change_.missing.size() + held_.blank.size();
    plan_.changed = std::move(change_.changed);
    plan_.missing = std::move(change_.missing);
    plan_.removed = plan_.missing;
    append_held(plan_.changed, plan_.removed);
    sort_by_place(plan_.removed);
  }

  const HeldDraws& held_;
  const std::vector<DrawRow>& rows_;
  ArchiveChange change_;
  std::vector<int32_t> absent_;  ///< draws entered by hand that the file does not have
  ImportPlan plan_;
};

}  // namespace

ImportPlan plan_import(const HeldDraws& held, const std::vector<int32_t>& marked, const std::vector<DrawRow>& rows,
                       ImportMode mode, MissingManual missing) {
  return Planner(held, rows).plan(marked, mode, missing);
}

}  // namespace vestara
