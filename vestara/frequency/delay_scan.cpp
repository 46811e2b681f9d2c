#include "vestara/frequency/delay_scan.h"

#include <utility>

#include "automation/int16.h"
#include "automation/yield.h"
#include "vestara/foundation/draw_columns.h"
#include "vestara/foundation/wheels.h"

namespace vestara {
namespace {

constexpr int32_t all_cells = wheel_count * number_count;
constexpr int32_t shown_maxima = 10;

/// The largest delay so far and the list of those that were one.
class Maxima {
 public:
  void meet(int16_t number, int16_t wheel, int16_t delay) {
    if (delay <= largest_) return;
    largest_ = delay;
    ranking_.push_front({number, wheel, delay});
    ++count_;
  }
  Ranking<int16_t> ranking() && {
    if (count_ < shown_maxima) ranking_.mark_unused_from(count_);
    return std::move(ranking_);
  }

 private:
  Ranking<int16_t> ranking_ = Ranking<int16_t>::zeros();
  int16_t largest_ = 0;
  int32_t count_ = 0;
};

}  // namespace

Ranking<int16_t> scan_delays(RecordSet& rows, WheelGrid<int16_t>& delays) {
  Maxima maxima;
  if (rows.at_end()) return std::move(maxima).ranking();
  const DrawColumns columns(rows);
  PerWheel<automation::Int16> draws;
  for (int32_t set = 0; set < all_cells && !rows.at_end();) {
    const int16_t wheel = columns.wheel.wheel(rows);
    automation::Int16& drawn = draws.at(wheel);
    for (const Column column : columns.numbers) {
      const int32_t number = rows.whole_number(column);
      int16_t& delay = delays.at(wheel, number);
      if (delay != never_drawn) continue;
      delay = drawn;
      ++set;
      maxima.meet(static_cast<int16_t>(number), wheel, delay);
    }
    ++drawn;
    rows.move_next();
    automation::yield_to_host();
  }
  return std::move(maxima).ranking();
}

}  // namespace vestara
