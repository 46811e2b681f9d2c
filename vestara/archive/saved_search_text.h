#pragma once

#include <cstdint>
#include <string>

#include "automation/variant.h"

namespace vestara {

/// As the key of a listing: all saved searches.
inline constexpr int32_t every_search = -1;

/// A search as it is stored. The texts are escaped already; a date that is none becomes NULL.
struct SavedSearch {
  int32_t id;
  const std::string& description;
  const std::string& numbers;
  int16_t combination;
  const std::string& wheels;
  const automation::Variant& saved;
  const automation::Variant& from;
  const automation::Variant& to;
};

/// The search with this key, or every one for -1, newest first.
std::string saved_search_list_statement(int32_t id);
std::string saved_search_delete_statement(int32_t id);
std::string saved_search_update_statement(const SavedSearch& search);
std::string saved_search_insert_statement(const SavedSearch& search);

}  // namespace vestara
