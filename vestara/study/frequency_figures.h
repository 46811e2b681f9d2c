#pragma once  // for hosts

#include <cstdint>
#include <vector>

#include "vestara/draws/draw_range.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/ranking.h"
#include "vestara/keeping/archive.h"

// Delays, counts and averages of a range, asked of each wheel by itself where several have a period (`wheel_loads`).
// They raise what the loads of vestara/frequency raise.

namespace vestara {

template <class Value>
struct Figures {
  std::vector<RankingEntry<Value>> ranking;  ///< the list of the load without its unused entries, largest first
  WheelGrid<Value> grid;
};

/// Draws of the wheel since the number came out; -1 for never.
VESTARA_API Figures<int32_t> delay_figures(const Archive& archive, const DrawRange& range);
/// How often it came out.
VESTARA_API Figures<int32_t> count_figures(const Archive& archive, const DrawRange& range);
/// How often in a hundred draws, those of all chosen wheels together, and how often.
struct AverageFigures {
  Figures<double> percent;
  WheelGrid<int32_t> times;
};
VESTARA_API AverageFigures average_figures(const Archive& archive, const DrawRange& range);

}  // namespace vestara
