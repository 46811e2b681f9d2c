#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "vestara/keeping/saved_searches.h"

namespace vestara {

/// The search with this key, or every one for -1, newest first.
std::string saved_search_list_statement(int32_t id);
std::string saved_search_delete_statement(int32_t id);
// The texts of the search are escaped already; no date is NULL.
std::string saved_search_update_statement(const SavedSearch& search);
std::string saved_search_insert_statement(const SavedSearch& search);

}  // namespace vestara
