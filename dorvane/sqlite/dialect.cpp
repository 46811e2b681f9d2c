#include "dorvane/sqlite/dialect.h"

#include <algorithm>
#include <array>
#include <string>

#include "automation/text.h"
#include "dorvane/schema.h"
#include "dorvane/statement.h"

namespace dorvane::sqlite {

using automation::concatenated;

namespace {

// DATE_TEXT has text affinity, which makes date ranges a fifth faster than DATE. The checks are the ranges that the
// servers' column types have.
std::string type_of(const vestara::ArchiveTable&, const vestara::TableColumn& column) {
  using enum vestara::ColumnKind;
  const auto in_range = [&](std::string_view type, std::string_view range) {
    return concatenated({type, " CHECK(", column.name, " BETWEEN ", range, ")"});
  };
  switch (column.kind) {
    case key:
      return "INTEGER PRIMARY KEY";
    case whole:
      return "INTEGER";
    case contest:
      return in_range("INTEGER", "-2147483648 AND 2147483647");
    case small:
      return "SMALLINT";
    case number:
      return in_range("SMALLINT", "-32768 AND 32767");
    case day:
    case moment:
      return "DATE_TEXT";
    case text:
    case code:
      return "TEXT";
  }
  return {};
}

bool is_archive_date(std::string_view name) {
  const auto is_it = [&](const vestara::TableColumn& column) {
    return holds_date(column.kind) && automation::equal_ignoring_case(column.name, name);
  };
  const auto tables = vestara::archive_tables();
  return std::any_of(tables.begin(), tables.end(), [&](const vestara::ArchiveTable& table) {
    return std::any_of(table.columns.begin(), table.columns.end(), is_it);
  });
}

}  // namespace

const Prohibitions prohibitions{syntax, {}, {}, {}};

std::string translate(std::string_view statement) { return undouble_backslashes(statement, syntax); }

bool only_computes(std::string_view function) {
  constexpr auto known = std::to_array<std::string_view>(
      {"->", "->>", "bm25", "highlight", "match", "matchinfo", "offsets", "rtreedepth", "rtreenode", "snippet"});
  return function.starts_with("json") || std::find(known.begin(), known.end(), function) != known.end();
}

records::TextReading reading_of(std::string_view column_name, const char* declared_type) {
  if (!declared_type) return records::TextReading::iso_dates;
  const std::string type = automation::lower_case(declared_type);
  const bool says_date = type.find("date") != std::string::npos || type.find("time") != std::string::npos;
  return says_date || is_archive_date(column_name) ? records::TextReading::iso_dates : records::TextReading::plain;
}

std::string table_statement(const vestara::ArchiveTable& table) {
  return concatenated({"CREATE TABLE IF NOT EXISTS ", table.name, "(", column_definitions(table, type_of), ")"});
}

std::string index_statement(const vestara::ArchiveIndex& index) { return index_creation(index, index.table->name); }

const vestara::ArchiveIndex& lasting_index() { return vestara::archive_indexes().back(); }

}  // namespace dorvane::sqlite
