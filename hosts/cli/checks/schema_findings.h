#pragma once

#include <string>

#include "hosts/cli/checks/finding.h"
#include "vestara/keeping/checks/schema_checks.h"

namespace vestara::host {

/// In words: one finding for each kind of thing that is missing, with the names as its example, and one for each table
/// that cannot be read.
Findings schema_findings(const SchemaFacts& facts);

/// "table storico, column ruote.ruotaAlias missing": why `has_tables` is false; else the connector's own reason.
std::string missing_tables(const Archive& archive);

}  // namespace vestara::host
