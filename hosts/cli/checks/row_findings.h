#pragma once

#include <vector>

#include "hosts/cli/checks/finding.h"
#include "vestara/keeping/checks/row_checks.h"

namespace vestara::host {

/// In words: what the rows of an archive have against them. A question that the database refused is a finding itself.
Findings row_findings(const std::vector<RowFinding>& faults);

}  // namespace vestara::host
