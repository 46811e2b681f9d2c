#pragma once  // installed

#include <cstdint>
#include <optional>
#include <string>

#include "automation/date.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

// Searches that the archive keeps under a number. Each change is one statement. A host that wants several kept together
// puts a transaction around them.

namespace vestara {

/// As the key of a listing: all saved searches.
inline constexpr int32_t every_search = -1;

/// A search that the archive keeps under a number.
struct SavedSearch {
  int32_t id = 0;  ///< 0 for one that has no number yet
  std::string description;
  std::string numbers;      ///< "5,12"
  int16_t combination = 1;  ///< numbers that make a hit
  std::string wheels;       ///< "BA,NA", empty for all
  std::optional<automation::Date> saved;
  std::optional<automation::Date> from;
  std::optional<automation::Date> to;
};

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
