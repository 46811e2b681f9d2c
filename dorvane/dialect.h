#pragma once

#include <string>
#include <string_view>

#include "dorvane/statement_guard.h"
#include "vestara/foundation/schema.h"

namespace dorvane {

/// How the statements and tables of one server engine differ from those of the others.
struct Dialect {
  const Prohibitions& prohibitions;
  /// A host's statement as the engine takes it: a changing one, a reading one.
  std::string (*translate)(std::string_view statement);
  std::string (*translate_reading)(std::string_view statement);
  /// The statements that create a table and an index of the archive.
  std::string (*table_statement)(const vestara::ArchiveTable& table);
  std::string (*index_statement)(const vestara::ArchiveIndex& index);
  /// Two statements that ask the engine what an archive has, with a result of one column: the columns of its tables as
  /// "table.column", and the names of its indexes, in lower case.
  std::string_view column_facts;
  std::string_view index_facts;
};

}  // namespace dorvane
