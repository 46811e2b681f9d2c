#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "vestara/foundation/export.h"

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
  std::string_view numbers;  ///< goes into the text as it stands
  int16_t number_count;
  int16_t bets;
  int16_t columns;
  int16_t guarantee;
};

VESTARA_API std::string system_list_statement(const SystemFilter& filter);
VESTARA_API std::string system_combinations_statement(int32_t key);
VESTARA_API std::string system_insert_statement(int32_t key, const SystemHeader& header);
VESTARA_API std::string combination_insert_statement(int32_t key, std::string_view combination);
// Edits and removals are spelt differently; they stay as they are.
VESTARA_API std::string edited_system_delete_statement(int32_t key);
VESTARA_API std::string edited_combinations_delete_statement(int32_t key);
VESTARA_API std::string system_delete_statement(int32_t key);
VESTARA_API std::string combinations_delete_statement(int32_t key);

}  // namespace vestara
