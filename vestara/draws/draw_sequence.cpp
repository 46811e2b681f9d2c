#include "vestara/draws/draw_sequence.h"

#include <algorithm>

namespace vestara {
namespace {

size_t count_of(const RowRange& rows) { return rows.end - rows.first; }

WheelSet only(int32_t wheel) {
  WheelSet wheels;
  wheels.add(wheel);
  return wheels;
}

}  // namespace

DrawSequence DrawSequence::of_wheel(std::shared_ptr<const LoadedDraws> draws, int32_t wheel, const DrawPeriod& period) {
  const RowRange rows = draws->rows_of(wheel, period.since, period.until);
  DrawSequence sequence(std::move(draws), only(wheel).name());
  sequence.runs_ = {rows};
  sequence.draws_ = static_cast<int32_t>(count_of(rows));
  sequence.draws_by_wheels_[1] = sequence.draws_;
  return sequence;
}

DrawSequence DrawSequence::of_dates(std::shared_ptr<const LoadedDraws> draws, const WheelSet& wheels,
                                    const DrawPeriod& period) {
  DrawSequence sequence(std::move(draws), wheels.name());
  sequence.by_dates_ = true;
  for (const int32_t wheel : wheels.wheels())
    sequence.runs_.push_back(sequence.loaded_->rows_of(wheel, period.since, period.until));
  sequence.find_dates();
  return sequence;
}

void DrawSequence::find_dates() {
  std::vector<RowRange> left = runs_;
  const auto is_over = [](const RowRange& rows) { return rows.first == rows.end; };
  for (std::erase_if(left, is_over); !left.empty(); std::erase_if(left, is_over)) {
    int32_t day = loaded_->day(left.front().first);
    for (const RowRange& rows : left) day = std::min(day, loaded_->day(rows.first));
    size_t wheels = 0;
    for (RowRange& rows : left) {
      if (loaded_->day(rows.first) == day) ++wheels;
      while (rows.first < rows.end && loaded_->day(rows.first) == day) ++rows.first;
    }
    dates_.push_back(day);
    ++draws_by_wheels_[wheels];
  }
  draws_ = static_cast<int32_t>(dates_.size());
}

std::vector<DrawSequence> draw_sequences(const std::shared_ptr<const LoadedDraws>& draws, const WheelSet& wheels,
                                         const DrawPeriod& period, WheelView view) {
  std::vector<DrawSequence> sequences;
  if (view == WheelView::together)
    sequences.push_back(DrawSequence::of_dates(draws, wheels, period));
  else
    for (const int32_t wheel : wheels.wheels()) sequences.push_back(DrawSequence::of_wheel(draws, wheel, period));
  std::erase_if(sequences, [](const DrawSequence& sequence) { return sequence.draws() == 0; });
  return sequences;
}

}  // namespace vestara
