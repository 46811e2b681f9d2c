#include "vestara/archive/hit_counters.h"

#include <cstddef>

#include "automation/error.h"
#include "automation/int16.h"

namespace vestara {

HitCountTable tally_hits(RecordSet& rows) {
  HitCountTable table{};
  if (rows.at_end()) return table;
  const Column hits = rows.column("s2.numeriTrovati");
  for (; !rows.at_end(); rows.move_next()) {
    const int32_t count = rows.whole_number(hits);
    if (count < 0 || count >= static_cast<int32_t>(table.size())) throw automation::subscript_out_of_range();
    ++table[static_cast<size_t>(count)];
  }
  rows.move_first();
  return table;
}

HitCounters hit_counters(const HitCountTable& table) {
  // Row j-1, column k-1: k over j.
  constexpr int64_t ways[5][5] = {
      {1, 2, 3, 4, 5}, {0, 1, 3, 6, 10}, {0, 0, 1, 4, 10}, {0, 0, 0, 1, 5}, {0, 0, 0, 0, 1}};
  const auto total = [&](const int64_t(&row)[5]) {
    int64_t sum = 0;
    for (size_t k = 0; k < 5; ++k) sum += row[k] * table[k + 1];
    return automation::checked_long(sum);
  };
  return {total(ways[0]), total(ways[1]), total(ways[2]), total(ways[3]), total(ways[4])};
}

void count_hits(RecordSet& rows, DrawChoice draws, HitCount& into) {
  const HitCountTable table = draws == DrawChoice::hits ? tally_hits(rows) : HitCountTable{};
  into.rows = rows.record_count();
  into.combinations = hit_counters(table);
}

}  // namespace vestara
