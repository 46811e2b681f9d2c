#pragma once  // installed

#include <cstdint>
#include <span>
#include <string_view>

#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

// Betting systems that the archive keeps: a header row and a row for each combination. No call has a transaction of its
// own. A host that wants all of a system or nothing puts one around the call.

namespace vestara {

/// Which systems to list: an empty text and 0 do not filter.
struct SystemFilter {
  int32_t key = 0;
  std::string_view kind;
  std::string_view title;        ///< found anywhere in the title
  std::string_view description;  ///< found anywhere in the description
  int16_t numbers = 0;
  int16_t bets = 0;
  int16_t columns = 0;
  int16_t guarantee = 0;
};

/// The header row of a system. The texts must outlive the call that gets it.
struct SystemHeader {
  std::string_view title;
  std::string_view description;
  std::string_view numbers;  ///< goes into the statement as it stands, quotes included
  int16_t number_count;
  int16_t bets;
  int16_t columns;
  int16_t guarantee;
};

/// Stores a system under the next free number, which it returns; `replaced`, when it is not 0, is removed first.
/// Combinations are stored as they are, "1,2,3" or positions. Raises a failure of kind database when a statement is
/// refused, error 6 when the numbers are used up, what the connector raises; what was done before stays.
VESTARA_API int32_t save_system(DbConnector& connector, int32_t replaced, const SystemHeader& header,
                                std::span<const std::string_view> combinations);
/// Removes a system and its combinations, if there is one. Raises likewise.
VESTARA_API void delete_system(DbConnector& connector, int32_t key);

// The same for a class: False when a statement was refused. `key` is the number that is replaced, and becomes the new
// one before the first row is stored.
bool store_system(DbConnector& connector, int32_t& key, const SystemHeader& header,
                  std::span<const std::string_view> combinations);
bool remove_system(DbConnector& connector, int32_t key);

}  // namespace vestara
