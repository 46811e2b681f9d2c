#include "vestara/files/draw_collector.h"

#include <algorithm>
#include <utility>

#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"

namespace vestara {
namespace {

std::string contradiction(const DrawRow& row, const DrawRow& earlier, uint32_t earlier_line) {
  std::string text(wheel_code(row.wheel));
  text += " of " + shown_day(row.day) + " contradicts line " + std::to_string(earlier_line) + ", which has";
  if (row.numbers == earlier.numbers) return text += " contest " + std::to_string(earlier.contest);
  for (const int8_t number : earlier.numbers) text += " " + std::to_string(number);
  return text;
}

}  // namespace

void RejectedRows::add(uint32_t line, std::string reason) {
  ++count_;
  if (first_.size() == most_named && line >= first_.back().line) return;
  const auto behind = std::upper_bound(first_.begin(), first_.end(), line,
                                       [](uint32_t place, const RejectedRow& row) { return place < row.line; });
  first_.insert(behind, {line, std::move(reason)});
  if (first_.size() > most_named) first_.pop_back();
}

void DrawCollector::add(uint32_t line, const RowFields& fields) {
  std::string reason;
  const auto row = reader_.read(fields, reason);
  if (!row) return reject(line, std::move(reason));
  ++draws_.read;
  placed_.push_back({*row, line});
}

void DrawCollector::reject(uint32_t line, std::string reason) {
  ++draws_.read;
  draws_.rejected.add(line, std::move(reason));
}

void DrawCollector::drop_repeated() {
  uint32_t first_line = 0;
  for (const Placed& placed : placed_) {
    const DrawRow& row = placed.row;
    if (draws_.rows.empty() || !same_place(draws_.rows.back(), row)) {
      draws_.rows.push_back(row);
      first_line = placed.line;
    } else if (same_draw(draws_.rows.back(), row) && draws_.rows.back().contest == row.contest) {
      ++draws_.repeated;
    } else {
      draws_.rejected.add(placed.line, contradiction(row, draws_.rows.back(), first_line));
    }
  }
}

CollectedDraws DrawCollector::finish() {
  const auto by_place = [](const Placed& left, const Placed& right) { return comes_before(left.row, right.row); };
  std::stable_sort(placed_.begin(), placed_.end(), by_place);
  draws_.rows.reserve(placed_.size());
  drop_repeated();
  return std::move(draws_);
}

}  // namespace vestara
