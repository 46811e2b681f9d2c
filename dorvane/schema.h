#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The archive's tables as every engine has them: what must be there, and what a given archive lacks of it.

namespace dorvane {

struct Table {
  std::string_view name;
  std::span<const std::string_view> columns;
};
std::span<const Table> tables();

/// How the tables spell a column, whatever the case it is asked in; "" for no column of theirs.
std::string_view column_spelling(std::string_view name);

/// The statement that creates something, and its name.
struct Creation {
  std::string_view name;
  std::string_view statement;
};

/// What an archive has, names in lower case.
struct SchemaFacts {
  std::set<std::string, std::less<>> columns;  ///< "table.column"
  std::set<std::string, std::less<>> indexes;
  std::set<std::string, std::less<>> wheels;  ///< aliases, as they are

  bool has_table(std::string_view table) const;
  bool has_index(std::string_view index) const;
};

/// One line for everything that is missing; none when the archive is complete.
std::vector<std::string> missing_from(const SchemaFacts& facts, std::span<const Creation> indexes);

/// Adds the wheels whose enumerator and alias are both missing.
std::string_view wheels_statement();

}  // namespace dorvane
