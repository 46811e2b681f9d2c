#include <algorithm>
#include <tuple>

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

/// The rows of a selection that `takes` them, wheel by wheel.
template <class Takes>
std::vector<Row> rows_of(const Draws& draws, const Selection& selection, Takes takes) {
  std::vector<Row> rows;
  for (const int32_t wheel : selection.wheels.wheels()) {
    const RowRange range = draws->rows_of(wheel, selection.period.since, selection.period.until);
    for (size_t row = range.first; row < range.end; ++row)
      if (takes(row)) rows.push_back({draws->day(row), wheel, row});
  }
  return rows;
}

Drawing drawing_at(const Draws& draws, const Row& at) {
  return {automation::Date::from_day(at.day), draws->contest(at.row), at.wheel, draws->numbers(at.row)};
}

}  // namespace

std::vector<Drawing> drawings(const Draws& draws, const Selection& selection) {
  auto rows = rows_of(draws, selection, [](size_t) { return true; });
  std::sort(rows.begin(), rows.end(), [](const Row& left, const Row& right) {
    return std::tie(left.day, left.row) < std::tie(right.day, right.row);
  });
  std::vector<Drawing> answer;
  answer.reserve(rows.size());
  for (const Row& row : rows) answer.push_back(drawing_at(draws, row));
  return answer;
}

std::vector<FoundDrawing> search_drawings(const Draws& draws, const SearchQuestion& question) {
  const NumberMask wanted = mask_of(question.numbers);
  auto rows = rows_of(draws, question.selection,
                      [&](size_t row) { return (draws->mask(row) & wanted).count() >= question.hits; });
  // Of two draws of one wheel on one date the later one goes first.
  std::sort(rows.begin(), rows.end(), [](const Row& left, const Row& right) {
    return std::tie(right.day, left.wheel, right.row) < std::tie(left.day, right.wheel, left.row);
  });
  std::vector<FoundDrawing> answer;
  for (const Row& row : rows) {
    Numbers found;
    for (const uint8_t number : question.numbers)
      if (draws->mask(row.row).contains(number)) found.push_back(number);
    answer.push_back({drawing_at(draws, row), std::move(found)});
  }
  return answer;
}

}  // namespace vestara::study
