#pragma once

#include "tests/support/delay_oracle.h"

// The analytic table, computed the slow and obvious way: for every draw, the dates after its own and the numbers
// that no newer draw of the wheel holds.

namespace testing_support {

struct AnalyticTable {
  std::vector<std::string> lines;  ///< "14/11/2026 BA 1: 5.6.7 after 0"; none after an error
  int32_t error = 0;
  bool stopped = false;  ///< before the oldest draw, every number being met on every wheel
};

AnalyticTable analytic_table_of(const Archive& archive, automation::Date today);
std::string analytic_line(automation::Date date, const std::string& wheel, int32_t enumerator,
                          const std::string& numbers, int32_t delay);

}  // namespace testing_support
