#pragma once  // installed

#include <cstdint>
#include <optional>
#include <string>

#include "automation/date.h"

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

/// The search with this key, or every one for -1, newest first.
std::string saved_search_list_statement(int32_t id);
std::string saved_search_delete_statement(int32_t id);
// The texts of the search are escaped already; no date is NULL.
std::string saved_search_update_statement(const SavedSearch& search);
std::string saved_search_insert_statement(const SavedSearch& search);

}  // namespace vestara
