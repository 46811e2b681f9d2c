#include <algorithm>
#include <functional>

#include "vestara/draws/group_place.h"
#include "vestara/draws/loaded_draws.h"
#include "vestara/study/figures.h"

namespace vestara::study {
namespace {

/// A row of the loaded draws.
struct Row {
  int32_t day = 0;
  int32_t wheel = 0;
  size_t row = 0;
};

using Rows = std::vector<Row>;

/// The rows of a selection that `takes` them, those of a wheel by date.
template <class Takes>
std::vector<Rows> rows_of(const Draws& draws, const Selection& selection, Takes takes) {
  std::vector<Rows> by_wheel;
  for (const int32_t wheel : selection.wheels.wheels()) {
    const RowRange range = draws->rows_of(wheel, selection.period.since, selection.period.until);
    Rows& rows = by_wheel.emplace_back();
    for (size_t row = range.first; row < range.end; ++row)
      if (takes(row)) rows.push_back({draws->day(row), wheel, row});
  }
  return by_wheel;
}

/// One list of the rows of all wheels, each of them in the order of days that `before` has; of one day the earlier
/// wheel goes first. Eleven lists that are sorted are merged faster than their rows are sorted.
template <class Before>
Rows merged(const std::vector<Rows>& by_wheel, Before before) {
  struct Left {
    const Row* next;
    const Row* end;
  };
  std::vector<Left> left;
  size_t count = 0;
  for (const Rows& rows : by_wheel) {
    if (!rows.empty()) left.push_back({rows.data(), rows.data() + rows.size()});
    count += rows.size();
  }
  Rows all;
  all.reserve(count);
  while (!left.empty()) {
    const auto first = std::min_element(left.begin(), left.end(), [&](const Left& one, const Left& two) {
      return before(one.next->day, two.next->day);
    });
    all.push_back(*first->next);
    if (++first->next == first->end) left.erase(first);
  }
  return all;
}

Drawing drawing_at(const Draws& draws, const Row& at) {
  return {automation::Date::from_day(at.day), draws->contest(at.row), at.wheel, draws->numbers(at.row)};
}

}  // namespace

std::vector<Drawing> drawings(const Draws& draws, const Selection& selection) {
  const Rows rows = merged(rows_of(draws, selection, [](size_t) { return true; }), std::less<>());
  std::vector<Drawing> answer;
  answer.reserve(rows.size());
  for (const Row& row : rows) answer.push_back(drawing_at(draws, row));
  return answer;
}

std::vector<FoundDrawing> search_drawings(const Draws& draws, const SearchQuestion& question) {
  const NumberMask wanted = mask_of(question.numbers);
  auto by_wheel = rows_of(draws, question.selection,
                          [&](size_t row) { return (draws->mask(row) & wanted).count() >= question.hits; });
  // Of two draws of one wheel on one date the later one goes first.
  for (Rows& rows : by_wheel) std::reverse(rows.begin(), rows.end());
  const Rows rows = merged(by_wheel, std::greater<>());
  std::vector<FoundDrawing> answer;
  answer.reserve(rows.size());
  for (const Row& row : rows) {
    Numbers found;
    for (const uint8_t number : ascending(draws->numbers(row.row)))
      if (wanted.contains(number)) found.push_back(number);
    answer.push_back({drawing_at(draws, row), std::move(found)});
  }
  return answer;
}

}  // namespace vestara::study
