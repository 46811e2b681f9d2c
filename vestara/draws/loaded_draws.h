#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "vestara/draws/group_place.h"
#include "vestara/draws/number_mask.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// What one wheel drew on one date.
struct LoadedDraw {
  int32_t day = 0;                 ///< days since 1899-12-30
  std::optional<int32_t> contest;  ///< as the archive has it
  DrawnNumbers numbers{};          ///< in the order they were drawn
};

/// Rows `first` to before `end`.
struct RowRange {
  size_t first = 0;
  size_t end = 0;
};

/// The draws of an archive in memory, in columns of 29 bytes a row. Rows count from 0, those of a wheel stand together
/// and by date; equal dates by contest number, none before any, then by their numbers. They never change.
class VESTARA_API LoadedDraws {
 public:
  /// The draws of wheels 1 to 11, each in any order.
  using ByWheel = std::array<std::vector<LoadedDraw>, wheel_count>;
  explicit LoadedDraws(ByWheel draws);

  size_t rows() const { return days_.size(); }
  /// The rows of a wheel (1 to 11) in a period, both bounds included.
  RowRange rows_of(int32_t wheel, std::optional<int32_t> since, std::optional<int32_t> until) const;

  int32_t day(size_t row) const { return days_[row]; }
  std::optional<int32_t> contest(size_t row) const;
  const DrawnNumbers& numbers(size_t row) const { return numbers_[row]; }
  NumberMask mask(size_t row) const { return {low_[row], high_[row]}; }

 private:
  void append(std::vector<LoadedDraw>& of_wheel);

  std::array<size_t, wheel_count + 1> starts_{};
  std::vector<int32_t> days_;
  std::vector<int32_t> contests_;
  std::vector<bool> has_contest_;
  std::vector<DrawnNumbers> numbers_;
  std::vector<uint64_t> low_;
  std::vector<uint64_t> high_;
};

}  // namespace vestara
