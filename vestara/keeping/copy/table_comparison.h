#pragma once

#include <cstdint>

#include "vestara/keeping/archive.h"
#include "vestara/keeping/archive_tables.h"
#include "vestara/keeping/copy/row_progress.h"

namespace vestara {

/// Reads a table of both archives and returns its rows when they are equal, value by value, and as many as either
/// archive counts. Else a Failure (database) names the first difference: table, key, column and both values.
int64_t compare_tables(const Archive& from, const Archive& to, const ArchiveTable& table, RowProgress& progress);

}  // namespace vestara
