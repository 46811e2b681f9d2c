#pragma once  // installed

#include <cstdint>
#include <string>
#include <vector>

#include "automation/date.h"
#include "vestara/foundation/recordset.h"

namespace vestara {

/// A draw that some numbers came out in for the last time.
struct AnalyticLine {
  automation::Date date;
  std::string numbers;  ///< in the order they were drawn, joined by "."
  int16_t delay = 0;    ///< dates of any wheel since: 0 is the newest
  std::string wheel;    ///< alias as the archive has it
  int16_t wheel_enumerator = 0;
};

/// The lines that draws, newest first, give. Stops once every number was met on every wheel; yields to the host
/// after each row. Error 9 for a number or a wheel that there is not.
std::vector<AnalyticLine> scan_analytic_lines(RecordSet& rows);

}  // namespace vestara
