#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vestara/foundation/export.h"
#include "vestara/keeping/saved_systems.h"

namespace vestara {

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
