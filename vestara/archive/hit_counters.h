#pragma once  // installed

#include <array>
#include <cstdint>

#include "vestara/archive/search_text.h"
#include "vestara/foundation/recordset.h"

namespace vestara {

/// Rows of the counting statement by how many of the searched numbers they hold, 0 to 5.
using HitCountTable = std::array<int32_t, 6>;

/// How often each kind of combination came out. A row with k hits holds (k over j) combinations of j numbers.
struct HitCounters {
  int32_t ambate = 0;
  int32_t ambi = 0;
  int32_t terni = 0;
  int32_t quaterne = 0;
  int32_t cinquine = 0;
  bool operator==(const HitCounters&) const = default;
};

/// Walks all rows and goes back to the first. Errors: 9 for a row with fewer than 0 or more than 5 hits, 94 Null.
HitCountTable tally_hits(RecordSet& rows);

/// Error 6 beyond 32 bits.
HitCounters hit_counters(const HitCountTable& table);

/// What the counting statement of a search amounts to.
struct HitCount {
  int32_t rows = 0;  ///< archive rows that matched; draws, when all draws were asked for
  HitCounters combinations;
};
/// Counts the rows of the statement, and the hits in them where `draws` asks for hits. The rows are in `into` before
/// the combinations: they stay when those are too many.
void count_hits(RecordSet& rows, DrawChoice draws, HitCount& into);

}  // namespace vestara
