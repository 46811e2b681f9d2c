#include "dorvane/sqlite/statement_clock.h"

#include <algorithm>

namespace dorvane::sqlite {

bool StatementClock::may_go_on() {
  // Work between two ticks takes less; what takes more was the host between two rows.
  constexpr std::chrono::milliseconds longest_tick{100};
  const Clock::time_point now = Clock::now();
  spent_ += std::min<Clock::duration>(now - last_, longest_tick);
  last_ = now;
  return limit_.count() == 0 || spent_ <= limit_;
}

}  // namespace dorvane::sqlite
