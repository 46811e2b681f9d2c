#include "dorvane/schema.h"

#include "automation/text.h"

namespace dorvane {

using automation::concatenated;
using vestara::ArchiveIndex;
using vestara::ArchiveTable;
using vestara::SchemaGap;
using vestara::TableColumn;

namespace {

std::string lower(std::string_view name) { return automation::lower_case(name); }

void add_missing_of(const ArchiveTable& table, const SchemaFacts& facts, std::vector<SchemaGap>& missing) {
  if (!facts.has_table(table.name)) {
    missing.push_back({SchemaGap::Kind::table, table.name, table.name});
    return;
  }
  for (const TableColumn& column : table.columns)
    if (!facts.columns.contains(lower(table.name) + "." + lower(column.name)))
      missing.push_back({SchemaGap::Kind::column, table.name, column.name});
}

}  // namespace

std::string_view column_spelling(std::string_view name) {
  for (const ArchiveTable& table : vestara::archive_tables())
    for (const TableColumn& column : table.columns)
      if (automation::equal_ignoring_case(column.name, name)) return column.name;
  return {};
}

std::string column_definitions(const ArchiveTable& table, ColumnType type_of) {
  std::string list;
  for (const TableColumn& column : table.columns)
    list.append(list.empty() ? "" : ", ").append(column.name).append(" ").append(type_of(table, column));
  return list;
}

std::string index_creation(const ArchiveIndex& index, std::string_view table) {
  std::string columns;
  for (const vestara::SortedColumn& column : index.sorted)
    columns.append(columns.empty() ? "" : ",")
        .append(column.name)
        .append(column.order == vestara::SortOrder::descending ? " DESC" : "");
  for (const std::string_view column : index.covered)
    if (column != index.table->key()) columns.append(",").append(column);
  return concatenated({"CREATE INDEX IF NOT EXISTS ", index.name, " ON ", table, "(", columns, ")"});
}

std::string wheels_statement() {
  std::string wheels;
  for (size_t i = 0; i < vestara::wheel_aliases.size(); ++i)
    wheels += concatenated({i == 0 ? "SELECT " : " UNION ALL SELECT ", std::to_string(i + 1), ",",
                            std::to_string(1U << i), ",'", vestara::wheel_aliases[i], "'"});
  return concatenated(
      {"INSERT INTO ruote(enumeratore,enumeratoreBit,ruotaAlias) WITH wheel(i,bit,alias) AS (", wheels,
       ") SELECT i,bit,alias FROM wheel WHERE i NOT IN (SELECT enumeratore FROM ruote) AND alias NOT IN (SELECT"
       " ruotaAlias FROM ruote) ORDER BY i"});
}

bool SchemaFacts::has_table(std::string_view table) const {
  const std::string prefix = lower(table) + ".";
  const auto found = columns.lower_bound(prefix);
  return found != columns.end() && found->starts_with(prefix);
}

bool SchemaFacts::has_index(std::string_view index) const { return indexes.contains(lower(index)); }

std::vector<SchemaGap> missing_from(const SchemaFacts& facts) {
  std::vector<SchemaGap> missing;
  for (const ArchiveTable& table : vestara::archive_tables()) add_missing_of(table, facts, missing);
  for (const ArchiveIndex& index : vestara::archive_indexes())
    if (!facts.has_index(index.name)) missing.push_back({SchemaGap::Kind::index, index.table->name, index.name});
  const std::string_view wheel_table = vestara::wheel_table.name;
  if (!facts.has_table(wheel_table)) return missing;
  for (const std::string_view wheel : vestara::wheel_aliases)
    if (!facts.wheels.contains(wheel)) missing.push_back({SchemaGap::Kind::wheel, wheel_table, wheel});
  return missing;
}

}  // namespace dorvane
