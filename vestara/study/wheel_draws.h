#pragma once  // for hosts

#include <cstdint>
#include <optional>
#include <vector>

#include "vestara/draws/draw_range.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// The draws of a period in which at least one of the chosen wheels took part. Two contests of a date are two draws.
/// Days count from 1899-12-30.
class VESTARA_API WheelDraws {
 public:
  /// Reads those of a range.
  WheelDraws(const Archive& archive, const DrawRange& range);
  /// `days` in any order, one for each draw.
  explicit WheelDraws(std::vector<int32_t> days);

  int64_t count() const { return static_cast<int64_t>(days_.size()); }
  /// Draws strictly between two days; nothing stands for the end of the period.
  int64_t between(std::optional<int32_t> after, std::optional<int32_t> before) const;

 private:
  std::vector<int32_t> days_;  ///< sorted
};

/// How many wheels a range has: those that it names, or all that the archive has in its period.
VESTARA_API int16_t wheels_in(const Archive& archive, const DrawRange& range);

}  // namespace vestara
