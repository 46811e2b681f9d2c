#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "vestara/draws/draw_period.h"
#include "vestara/draws/loaded_draws.h"
#include "vestara/draws/wheel_set.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// Successive draws, from 0 for the oldest: those of one wheel, or of several wheels taken together, where a draw is a
/// date on which one of them at least was drawn. Keeps the loaded draws.
class VESTARA_API DrawSequence {
 public:
  /// The draws of one wheel (1 to 11), one a row.
  static DrawSequence of_wheel(std::shared_ptr<const LoadedDraws> draws, int32_t wheel, const DrawPeriod& period);
  /// The dates of several wheels.
  static DrawSequence of_dates(std::shared_ptr<const LoadedDraws> draws, const WheelSet& wheels,
                               const DrawPeriod& period);

  /// "VE", or the wheels' name as one.
  const std::string& name() const { return name_; }
  int32_t draws() const { return draws_; }
  /// The day of a draw.
  int32_t day(int32_t draw) const {
    const auto place = static_cast<size_t>(draw);
    return by_dates_ ? dates_[place] : loaded_->day(runs_.front().first + place);
  }
  /// How many draws have how many wheels: [w] counts those with w wheels, 1 to 11.
  const std::array<int32_t, wheel_count + 1>& draws_by_wheels() const { return draws_by_wheels_; }

  const LoadedDraws& loaded() const { return *loaded_; }
  /// Calls `visit(draw, row)` for every row, draw by draw from the oldest.
  template <class Visit>
  void each_row(Visit visit) const {
    if (by_dates_) return each_row_of_dates(visit);
    const RowRange rows = runs_.front();
    int32_t draw = 0;
    for (size_t row = rows.first; row < rows.end; ++row) visit(draw++, row);
  }

 private:
  DrawSequence(std::shared_ptr<const LoadedDraws> draws, std::string name)
      : loaded_(std::move(draws)), name_(std::move(name)) {}

  void find_dates();
  template <class Visit>
  void each_row_of_dates(Visit visit) const {
    std::vector<RowRange> left = runs_;
    for (int32_t draw = 0; draw < draws_; ++draw)
      for (RowRange& rows : left)
        for (; rows.first < rows.end && loaded_->day(rows.first) == dates_[static_cast<size_t>(draw)]; ++rows.first)
          visit(draw, rows.first);
  }

  std::shared_ptr<const LoadedDraws> loaded_;
  std::string name_;
  bool by_dates_ = false;
  std::vector<RowRange> runs_;  ///< the rows of every wheel; at least one
  std::vector<int32_t> dates_;  ///< of several wheels
  int32_t draws_ = 0;
  std::array<int32_t, wheel_count + 1> draws_by_wheels_{};
};

/// The draws that a question is about, wheel by wheel or together. Sequences without a draw are left out.
VESTARA_API std::vector<DrawSequence> draw_sequences(const std::shared_ptr<const LoadedDraws>& draws,
                                                     const WheelSet& wheels, const DrawPeriod& period, WheelView view);

}  // namespace vestara
