#pragma once

#include <array>
#include <cstdint>

#include "vestara/archive/hit_search.h"

namespace vestara {

/// Rows of the counting statement by how many of the searched numbers they hold, 0 to 5.
using HitCountTable = std::array<int32_t, 6>;

/// Walks all rows and goes back to the first. Errors: 9 for a row with fewer than 0 or more than 5 hits, 94 for Null.
HitCountTable tally_hits(RecordSet& rows);

/// Error 6 beyond 32 bits.
HitCounters hit_counters(const HitCountTable& table);

/// Counts the rows of the statement, and the hits in them where `draws` asks for hits. The rows are in `into` before
/// the combinations: they stay when those are too many.
void count_hits(RecordSet& rows, DrawChoice draws, HitCount& into);

}  // namespace vestara
