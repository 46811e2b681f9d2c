#pragma once  // for hosts

#include <cstdint>
#include <span>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/progress.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// Adds rows to the archive, a thousand in a statement; `progress` counts rows. Used inside a transaction. Failure
/// (database) when the archive refuses one.
VESTARA_API void insert_draws(const Archive& archive, std::span<const DrawRow> rows, const Progress& progress = {});

/// Takes all rows of a day away, likewise.
VESTARA_API void delete_draws(const Archive& archive, int32_t day);
/// Empties the archive of draws, likewise; what is inserted next is indexed as a whole.
VESTARA_API void delete_all_draws(const Archive& archive);

}  // namespace vestara
