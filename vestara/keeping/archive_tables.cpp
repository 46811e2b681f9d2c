#include "vestara/keeping/archive_tables.h"

#include <algorithm>
#include <array>

namespace vestara {
namespace {

constexpr std::array<TableColumn, 1> mark_columns{{{known_column::draw_day, ColumnKind::day}}};
constexpr ArchiveTable table_of_marks{"vestara_manual_draws", mark_columns, KeySource::statement};

}  // namespace

const ArchiveTable& marks_table() { return table_of_marks; }

const ArchiveTable* archive_table(std::string_view name) {
  if (name == marks_table().name) return &marks_table();
  const auto tables = archive_tables();
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const auto& table) { return table.name == name; });
  return found == tables.end() ? nullptr : &*found;
}

std::string column_list(const ArchiveTable& table) {
  std::string names;
  for (const TableColumn& column : table.columns) names.append(names.empty() ? "" : ",").append(column.name);
  return names;
}

}  // namespace vestara
