#include "vestara/keeping/copy/archive_excerpt.h"

#include <string>

#include "vestara/keeping/copy/insert_batch.h"
#include "vestara/keeping/copy/value_literal.h"

namespace vestara {
namespace {

LiteralRow literals_of(RecordSet& row, const ArchiveTable& table) {
  LiteralRow literals;
  for (const TableColumn& column : table.columns) {
    try {
      literals.push_back(value_literal(row.value(Column{static_cast<int32_t>(literals.size())}), column.kind));
    } catch (const UnfitValue& unfit) {
      throw UnfitRow(FailureKind::database, "a row of " + std::string(table.name) +
                                                " cannot be used: " + std::string(column.name) + " " + unfit.what());
    }
  }
  return literals;
}

/// New keys in the order of the old ones.
void copy_rows(const Archive& from, const Archive& to, const ArchiveTable& table, const std::string& condition) {
  auto rows = from.rows("SELECT " + column_list(table) + " FROM " + std::string(table.name) + condition);
  InsertBatch batch(to, table);
  for (; !rows->at_end(); rows->move_next()) batch.add(literals_of(*rows, table));
  from.connector()->CloseRecordset(rows);
  batch.flush();
}

}  // namespace

void copy_excerpt(const Archive& from, const Archive& to, const DrawRange& range) {
  Transaction transaction(to);
  to.execute("DELETE FROM " + std::string(wheel_table.name), "no excerpt can be made");
  copy_rows(from, to, wheel_table, "");
  copy_rows(from, to, {draw_table.name, draw_table.columns.subspan(1)}, range_condition(range) + " ORDER BY id");
  transaction.commit();
}

}  // namespace vestara
