#pragma once

#include <vector>

#include "hosts/cli/checks/finding.h"
#include "vestara/keeping/checks/date_checks.h"
#include "vestara/keeping/checks/day_checks.h"

// In words: what the days of an archive have against them.

namespace vestara::host {

Findings date_findings(const DateFacts& facts);
Findings day_findings(const std::vector<DayFinding>& faults);

}  // namespace vestara::host
