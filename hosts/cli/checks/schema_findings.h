#pragma once

#include <string>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/checks/finding.h"

namespace vestara::host {

/// What an archive lacks of tables, columns, indexes and wheels, and tables that are there but cannot be read. One
/// finding for each kind, with the names as its example.
Findings schema_findings(const ArchiveSession& session);

/// "table storico, column ruote.ruotaAlias": why `has_tables` is false, in words; else the connector's own reason.
std::string missing_tables(const ArchiveSession& session);

}  // namespace vestara::host
