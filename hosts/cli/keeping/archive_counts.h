#pragma once

#include <cstdint>

#include "hosts/cli/keeping/archive_session.h"

// Days count from 1899-12-30.

namespace vestara::host {

/// Rows that the archive holds of a day.
int32_t rows_of_day(const ArchiveSession& session, int32_t day);
/// The same, at least one: Failure (nothing_found) when there is none.
int32_t some_rows_of_day(const ArchiveSession& session, int32_t day);
/// The place of a day among the draw dates of its year, from 1, whether the archive holds it or not.
int16_t position_in_year(const ArchiveSession& session, int32_t day);

}  // namespace vestara::host
