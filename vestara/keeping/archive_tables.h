#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vestara/foundation/export.h"

// The archive's tables, as far as this program reads and writes them by itself.

namespace vestara {

/// What a column holds, beside Null.
enum class ValueKind {
  whole,  ///< 32 bits
  small,  ///< 16 bits
  date,   ///< a day, perhaps with a time of day
  text,
};

struct TableColumn {
  std::string_view name;
  ValueKind kind;
};

struct ArchiveTable {
  std::string_view name;
  std::span<const TableColumn> columns;  ///< the key first

  std::string_view key() const { return columns.front().name; }
};

/// storico, tRicerche, tSistemi, tSistemaDetail and ruote.
VESTARA_API std::span<const ArchiveTable> archive_tables();
/// vestara_manual_draws, which an archive need not have.
VESTARA_API const ArchiveTable& marks_table();

/// One of these, by its name. Null when there is none of that name.
VESTARA_API const ArchiveTable* archive_table(std::string_view name);

/// "id,dtEstr,ruota,…"
VESTARA_API std::string column_list(const ArchiveTable& table);

}  // namespace vestara
