#pragma once

#include <cstdint>

#include "hosts/cli/keeping/archive_session.h"
#include "hosts/cli/keeping/archive_tables.h"
#include "hosts/cli/terminal/copy_progress.h"

namespace vestara::host {

/// Reads a table of both archives and returns its rows when they are equal, value by value, and as many as either
/// archive counts. Else a Failure (database) names the first difference: table, key, column and both values.
int64_t compare_tables(const ArchiveSession& from, const ArchiveSession& to, const ArchiveTable& table,
                       CopyProgress& progress);

}  // namespace vestara::host
