#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/schema.h"

// The statements that make an archive, as far as engines have them in common, and what a given archive lacks.

namespace dorvane {

/// How the tables spell a column, whatever the case it is asked in; "" for no column of theirs.
std::string_view column_spelling(std::string_view name);

/// An engine's type for a column, with what holds for the column alone.
using ColumnType = std::string (*)(const vestara::ArchiveTable& table, const vestara::TableColumn& column);

/// "id INTEGER PRIMARY KEY, dtEstr DATE_TEXT, …": every column of a table after its name.
std::string column_definitions(const vestara::ArchiveTable& table, ColumnType type_of);

/// Creates an index where it is missing, on an engine whose indexes hold the row's key anyway. `table` is the engine's
/// name for the table.
std::string index_creation(const vestara::ArchiveIndex& index, std::string_view table);

/// Adds the wheels whose enumerator and alias are both missing.
std::string wheels_statement();

/// What an archive has, names in lower case.
struct SchemaFacts {
  std::set<std::string, std::less<>> columns;  ///< "table.column"
  std::set<std::string, std::less<>> indexes;
  std::set<std::string, std::less<>> wheels;  ///< aliases, as they are

  bool has_table(std::string_view table) const;
  bool has_index(std::string_view index) const;
};

/// Everything that is missing, tables first; none when the archive is complete.
std::vector<vestara::SchemaGap> missing_from(const SchemaFacts& facts);

}  // namespace dorvane
