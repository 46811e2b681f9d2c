#pragma once

#include <string>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/checks/finding.h"

namespace vestara::host {

/// Triggers on the archive's tables, which change what is stored behind the library's back. `url` names the archive.
Findings trigger_findings(const ArchiveSession& session, const std::string& url);

/// Columns of texts that the database cannot compare, for want of their collation.
Findings collation_findings(const ArchiveSession& session);

}  // namespace vestara::host
