#include "vestara/keeping/import/archive_change.h"

#include <algorithm>
#include <span>

#include "vestara/keeping/archive_rows.h"
#include "vestara/keeping/stored_value.h"

namespace vestara {
namespace {

/// Any strict order in which equal draws meet.
bool differs_before(const DrawRow& left, const DrawRow& right) {
  return comes_before(left, right) || (same_place(left, right) && left.numbers < right.numbers);
}

/// A place may be filled twice in an archive: two contests on one date.
void compare_place(std::span<const DrawRow> held, const DrawRow& given, ArchiveChange& change) {
  const auto equal = std::find_if(held.begin(), held.end(), [&](const DrawRow& row) { return same_draw(row, given); });
  const auto partner = equal == held.end() ? held.begin() : equal;
  if (equal == held.end()) {
    change.changed.push_back({*partner, given});
  } else {
    ++change.equal;
    if (given.contest != 0 && given.contest != equal->contest) ++change.other_contests;
  }
  change.missing.insert(change.missing.end(), held.begin(), partner);
  change.missing.insert(change.missing.end(), partner + 1, held.end());
}

std::string values_of(RecordSet& row) {
  std::string text;
  for (int32_t column = 0; column < row.column_count(); ++column) {
    if (column != 0) text += ',';
    text += stored_text(row.value(Column{column}));
  }
  return text;
}

}  // namespace

ArchiveChange compare_draws(const std::vector<DrawRow>& held, const std::vector<DrawRow>& rows) {
  ArchiveChange change;
  auto row = rows.begin();
  for (auto first = held.begin(); first != held.end();) {
    const auto last = std::find_if(first, held.end(), [&](const DrawRow& other) { return !same_place(other, *first); });
    for (; row != rows.end() && comes_before(*row, *first); ++row) change.added.push_back(*row);
    if (row != rows.end() && same_place(*row, *first))
      compare_place({first, last}, *row++, change);
    else
      change.missing.insert(change.missing.end(), first, last);
    first = last;
  }
  change.added.insert(change.added.end(), row, rows.end());
  return change;
}

HeldDraws held_draws(const Archive& archive) {
  HeldDraws held;
  const auto take = [&](const DrawRow& row) {
    held.rows.push_back(row);
    return true;
  };
  read_draws(archive, WheelOrder::by_enumerator, take, [&](RecordSet& row) { held.blank.push_back(values_of(row)); });
  if (!std::is_sorted(held.rows.begin(), held.rows.end(), differs_before))
    std::sort(held.rows.begin(), held.rows.end(), differs_before);
  return held;
}

}  // namespace vestara
