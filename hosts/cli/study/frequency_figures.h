#pragma once

#include <cstdint>
#include <vector>

#include "hosts/cli/archive/archive_session.h"
#include "vestara/draws/draw_range.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/ranking.h"

// What the library counts, asked of each wheel by itself where several have a period. Failure (database) when it could
// not.

namespace vestara::host {

template <class Value>
struct Figures {
  std::vector<RankingEntry<Value>> ranking;  ///< the library's list without its unused entries, largest first
  WheelGrid<Value> grid;
};

/// Draws of the wheel since the number came out; -1 for never.
Figures<int32_t> load_delays(const ArchiveSession& session, const DrawRange& range);
/// How often it came out.
Figures<int32_t> load_counts(const ArchiveSession& session, const DrawRange& range);
/// How often in a hundred draws, those of all chosen wheels together, and how often.
struct AverageFigures {
  Figures<double> percent;
  WheelGrid<int32_t> times;
};
AverageFigures load_averages(const ArchiveSession& session, const DrawRange& range);

}  // namespace vestara::host
