#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "hosts/cli/draws/draw_range.h"
#include "hosts/cli/keeping/archive_session.h"

namespace vestara::host {

/// The draws of a period in which at least one of the chosen wheels took part. Two contests of a date are two draws.
/// Days count from 1899-12-30.
class WheelDraws {
 public:
  /// Reads those of a range.
  WheelDraws(const ArchiveSession& session, const DrawRange& range);
  /// `days` in any order, one for each draw.
  explicit WheelDraws(std::vector<int32_t> days);

  int64_t count() const { return static_cast<int64_t>(days_.size()); }
  /// Draws strictly between two days; nothing stands for the end of the period.
  int64_t between(std::optional<int32_t> after, std::optional<int32_t> before) const;

 private:
  std::vector<int32_t> days_;  ///< sorted
};

/// How many wheels a range has: those that it names, or all that the archive has in its period.
int16_t wheels_in(const ArchiveSession& session, const DrawRange& range);

}  // namespace vestara::host
