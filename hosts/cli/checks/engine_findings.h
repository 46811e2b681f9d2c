#pragma once

#include <string>
#include <vector>

#include "hosts/cli/checks/finding.h"
#include "vestara/keeping/checks/engine_checks.h"

// In words: what the database does to the archive, or denies it.

namespace vestara::host {

Findings trigger_findings(const TriggerFinding& triggers);
Findings column_findings(const std::vector<UncomparableColumn>& columns);
/// `why` no change is possible; "" when one is.
Findings change_findings(const std::string& why);

}  // namespace vestara::host
