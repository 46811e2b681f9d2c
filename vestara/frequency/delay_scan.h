#pragma once

#include <cstdint>

#include "vestara/foundation/connector.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/ranking.h"

namespace vestara {

/// In a delay grid: the number did not come out.
inline constexpr int16_t never_drawn = -1;

/// Sets the delay of every number on every wheel in `delays`, which holds `never_drawn` everywhere: draws of the
/// wheel, newest first, before the first one that holds it. Stops once every cell is set; yields to the host after
/// each row. What was set before an error stays.
///
/// Returns the successive maxima that the scan met, the last and largest first; it does not sort all delays. The
/// entries after them are (-1, -1, -1) with fewer than ten of them, zeros with more. All of that is the contract's.
Ranking<int16_t> scan_delays(RecordSet& rows, WheelGrid<int16_t>& delays);

}  // namespace vestara
