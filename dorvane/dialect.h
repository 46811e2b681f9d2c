#pragma once

#include <span>
#include <string>
#include <string_view>

#include "dorvane/schema.h"
#include "dorvane/statement_guard.h"

namespace dorvane {

/// What is a server's own in statements and tables.
struct Dialect {
  const Prohibitions& prohibitions;
  /// A statement as the engine takes it; the second for reading ones.
  std::string (*translate)(std::string_view statement);
  std::string (*translate_reading)(std::string_view statement);
  std::span<const Creation> tables;
  std::span<const Creation> indexes;
  /// Statements with one column each: "table.column" and the names of indexes, in lower case.
  std::string_view column_facts;
  std::string_view index_facts;
};

}  // namespace dorvane
