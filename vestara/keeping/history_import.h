#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "vestara/foundation/connector.h"
#include "vestara/foundation/schema.h"

namespace vestara {

/// Called after each statement that wrote rows.
using ImportProgress = std::function<void(int32_t position, int32_t count)>;

/// Empties the archive and fills it with the records of an update file's text, yielding to the host between the
/// statements. There is no transaction: what was removed and written before an error stays so. In multi-row mode the
/// records after the last whole thousand are not written. An unknown database type only empties the archive. All three
/// are the contract's. Errors: those of `parse_history_record`, and `refused()` for an insert that the database did not
/// take.
void import_history(DbConnector& connector, DatabaseType type, std::string_view text, const ImportProgress& progress);

/// The whole update file as text; a file that does not exist is created empty. Errors 52, 70, 75, 76 when it
/// cannot be opened.
std::string read_update_file(const std::string& path);

}  // namespace vestara
