#pragma once  // for hosts

#include <cstdint>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/keeping/checks/draw_days.h"

namespace vestara {

/// What a day of an archive can have against it.
enum class DayFault : uint8_t {
  in_the_future,
  one_wheel,  ///< only
  two_contests,
  out_of_order,  ///< its contest number is none behind that of the day before
  beyond_year,   ///< its contest number is larger than the dates of its year are many
};

/// Days with the same fault.
struct DayFinding {
  DayFault fault{};
  int64_t count = 0;
  DrawDay first;      ///< the oldest of them
  int64_t limit = 0;  ///< out of order: the number of the day before; beyond the year: the dates of the year
};

/// What is wrong with the days of an archive, which are sorted, in the order of the faults. `today` counts like the
/// days. An archive may begin in the middle of a year; one that has a single wheel keeps only that.
VESTARA_API std::vector<DayFinding> check_days(const std::vector<DrawDay>& days, int32_t today);

/// Days that the public files have with one wheel, which is that of a draw some days before or behind: history.
VESTARA_API int64_t known_stray_days(const std::vector<DrawDay>& days);

}  // namespace vestara
