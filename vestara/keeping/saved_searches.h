#pragma once  // installed

#include <cstdint>

#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/saved_search_text.h"

// Searches that the archive keeps under a number. Each change is one statement of its own; a host that wants several
// kept together puts a transaction around.

namespace vestara {

/// Stores a search, its texts as they are: under the next free number when it has none, otherwise in place of the one
/// with its number. Returns the number. Raises a failure of kind database when a statement is refused, error 6 when the
/// numbers are used up, what the connector raises.
VESTARA_API int32_t save_search(DbConnector& connector, SavedSearch search);
/// Removes the search with this number, if there is one. Raises likewise.
VESTARA_API void delete_search(DbConnector& connector, int32_t id);

/// The same for a search whose texts are escaped already; a new one gets its number before it is stored. False when
/// the statement was refused.
bool store_escaped(DbConnector& connector, SavedSearch& search);

}  // namespace vestara
