#pragma once

#include <string>
#include <string_view>

#include "dorvane/statement_guard.h"
#include "vestara/foundation/schema.h"

namespace dorvane {

/// What is a server's own in statements and tables.
struct Dialect {
  const Prohibitions& prohibitions;
  /// A statement as the engine takes it; the second for reading ones.
  std::string (*translate)(std::string_view statement);
  std::string (*translate_reading)(std::string_view statement);
  /// The statements that create a table and an index of the archive.
  std::string (*table_statement)(const vestara::ArchiveTable& table);
  std::string (*index_statement)(const vestara::ArchiveIndex& index);
  /// Statements with one column each: "table.column" and the names of indexes, in lower case.
  std::string_view column_facts;
  std::string_view index_facts;
};

}  // namespace dorvane
