#pragma once  // for hosts

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "vestara/draws/draw_range.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// The draws of each wheel by itself. Days count from 1899-12-30.
class VESTARA_API WheelCalendar {
 public:
  using Days = std::array<std::vector<int32_t>, wheel_count>;

  /// Reads those of a range; rows of no wheel that there is are left out.
  WheelCalendar(const Archive& archive, const DrawRange& range);
  /// By enumerator from 0, in any order; one for each draw.
  explicit WheelCalendar(Days days);

  int64_t draws(int16_t wheel) const;
  /// Draws on later days.
  int64_t draws_after(int16_t wheel, int32_t day) const;
  /// Days on which a wheel was drawn.
  int64_t dates() const;

 private:
  const std::vector<int32_t>& days_of(int16_t wheel) const { return days_.at(static_cast<size_t>(wheel - 1)); }

  Days days_;  ///< sorted
};

}  // namespace vestara
