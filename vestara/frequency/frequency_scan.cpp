#include "vestara/frequency/frequency_scan.h"

#include "automation/int16.h"
#include "automation/values/doubles.h"
#include "vestara/foundation/draw_columns.h"

namespace vestara {
namespace {

/// Calls `pair(wheel, number, count)` for every row.
template <class Pair>
void walk_pairs(RecordSet& rows, Pair pair) {
  if (rows.at_end()) return;
  const WheelColumn wheel(rows);
  const Column number = rows.column("estrazione");
  const Column count = rows.column("num");
  for (; !rows.at_end(); rows.move_next()) {
    const int16_t of_wheel = wheel.wheel(rows);  // the first that fails is the error: in this order
    const int32_t of_number = rows.whole_number(number);
    pair(of_wheel, of_number, rows.whole_number(count));
  }
}

}  // namespace

Ranking<int16_t> scan_counts(RecordSet& rows, WheelGrid<int16_t>& counts) {
  auto ranking = Ranking<int16_t>::zeros();
  int16_t previous = 0;
  int32_t entries = 0;
  walk_pairs(rows, [&](int16_t wheel, int32_t number, int32_t num) {
    int16_t& cell = counts.at(wheel, number);
    const int16_t count = cell = automation::Int16::checked(num);
    if (count == previous) return;
    previous = count;
    if (entries > ranking_last || count < 1) return;
    ranking.at(entries++) = {static_cast<int16_t>(number), wheel, count};
  });
  ranking.mark_unused_from(entries);
  return ranking;
}

Ranking<float> scan_averages(RecordSet& rows, int16_t draws, WheelGrid<float>& averages, WheelGrid<int32_t>& times) {
  auto ranking = Ranking<float>::zeros();
  int32_t entries = 0;
  walk_pairs(rows, [&](int16_t wheel, int32_t number, int32_t num) {
    float& cell = averages.at(wheel, number);
    times.at(wheel, number) = num;
    const float percentage = cell = static_cast<float>(automation::quotient(num, draws) * 100);
    if (entries <= ranking_last) ranking.at(entries++) = {static_cast<int16_t>(number), wheel, percentage};
  });
  return ranking;
}

}  // namespace vestara
