#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "hosts/cli/draws/draw_row.h"
#include "hosts/cli/keeping/archive_session.h"

namespace vestara::host {

/// Is told after each statement how many rows of how many are stored.
using InsertionProgress = std::function<void(size_t stored, size_t rows)>;

/// Adds rows to the archive, a thousand in a statement. Used inside a transaction. Failure (database) when the archive
/// refuses one.
void insert_draws(const ArchiveSession& session, std::span<const DrawRow> rows, const InsertionProgress& progress = {});

/// Takes all rows of a day away, likewise.
void delete_draws(const ArchiveSession& session, int32_t day);
/// Empties the archive of draws, likewise; what is inserted next is indexed as a whole.
void delete_all_draws(const ArchiveSession& session);

}  // namespace vestara::host
