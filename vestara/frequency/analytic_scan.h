#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vestara/frequency/loads.h"

namespace vestara {

/// The lines that draws, newest first, give. Stops once every number was met on every wheel; yields to the host after
/// each row. Error 9 for a number or a wheel that does not exist.
std::vector<AnalyticLine> scan_analytic_lines(RecordSet& rows);

}  // namespace vestara
