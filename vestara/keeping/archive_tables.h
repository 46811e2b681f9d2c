#pragma once

#include <string>
#include <string_view>

#include "vestara/foundation/export.h"
#include "vestara/foundation/schema.h"

// The archive's tables, as far as this program reads and writes them by itself.

namespace vestara {

/// vestara_manual_draws, which an archive need not have.
VESTARA_API const ArchiveTable& marks_table();

/// One of these or of the archive's own, by its name. Null when there is none of that name.
VESTARA_API const ArchiveTable* archive_table(std::string_view name);

/// "id,dtEstr,ruota,…"
VESTARA_API std::string column_list(const ArchiveTable& table);

}  // namespace vestara
