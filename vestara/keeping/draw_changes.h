#pragma once  // installed

#include <cstdint>
#include <functional>
#include <span>

#include "automation/date.h"
#include "vestara/draws/draw_row.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/schema.h"

// Draws into the archive and out of it, for C++ hosts. Each call raises a failure of kind database when the connector
// refused a statement, or what the connector raises. Only `save_draw` has a transaction of its own. What another call
// did before an error stays, unless the host's transaction takes it back. Rows name their wheels by 1 to 11 and are
// stored under the wheels' codes.

namespace vestara {

/// What becomes of the rows after the last whole thousand.
enum class Remainder : bool { written, left };

/// Called after each statement that stored rows: how many of how many there are now.
using StoredProgress = std::function<void(int32_t stored, int32_t rows)>;

/// Adds rows, each by itself or a thousand in a statement, as the database type says; with Remainder::left the rows
/// after the last whole thousand are not stored. Yields to the host after each statement. Error 6 for more rows than 32
/// bits count.
VESTARA_API void insert_draws(DbConnector& connector, DatabaseType type, std::span<const DrawRow> rows,
                              Remainder remainder = Remainder::written, const StoredProgress& progress = {});
/// The same into an archive that is emptied first.
VESTARA_API void import_draws(DbConnector& connector, DatabaseType type, std::span<const DrawRow> rows,
                              Remainder remainder = Remainder::written, const StoredProgress& progress = {});

/// Removes every draw. The embedded database makes the draws' indexes again after the next rows.
VESTARA_API void delete_all_draws(DbConnector& connector);
/// Removes the rows of a day, if there are any.
VESTARA_API void delete_draw(DbConnector& connector, automation::Date day);
/// Stores the rows of a day in place of all that the archive has of it, in a transaction of its own: after an error the
/// archive is as it was.
VESTARA_API void save_draw(DbConnector& connector, automation::Date day, std::span<const DrawRow> rows);

}  // namespace vestara
