#pragma once

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/options/options.h"
#include "hosts/cli/output/output.h"

namespace vestara::host {

/// The draw that was asked for: its date and contest number, then a row for each wheel that has numbers. Failure
/// (nothing_found) when the archive has no such draw.
Report draw_report(const ArchiveSession& session, const DrawShowOptions& options);

}  // namespace vestara::host
