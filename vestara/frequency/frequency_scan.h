#pragma once

#include <cstdint>

#include "vestara/foundation/connector.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/ranking.h"

namespace vestara {

// Walks over the rows of a frequency statement. What was set before an error stays. Errors: 9 for a number or a wheel
// that does not exist, 94 for a Null number.

/// Sets the counts. Returns one entry for each different count, the first that was met, largest first. These are not
/// the ninety most frequent, which is the contract's. The entries after them are (-1, -1, -1). Error 6 for a count
/// beyond 16 bits.
Ranking<int16_t> scan_counts(RecordSet& rows, WheelGrid<int16_t>& counts);

/// Sets counts, and counts in a hundred of `draws`. Returns the first ninety rows; entries after them are zeros. Error
/// 11 when there are no draws.
Ranking<float> scan_averages(RecordSet& rows, int16_t draws, WheelGrid<float>& averages, WheelGrid<int32_t>& times);

}  // namespace vestara
