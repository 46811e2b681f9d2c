#include "hosts/cli/archive/archive_excerpt.h"

#include <algorithm>
#include <string>

#include "hosts/cli/failure.h"
#include "vestara/keeping/copy/insert_batch.h"
#include "vestara/keeping/copy/value_literal.h"

namespace vestara::host {
namespace {

LiteralRow literals_of(RecordSet& row, const ArchiveTable& table) {
  LiteralRow literals;
  for (const TableColumn& column : table.columns) {
    try {
      literals.push_back(value_literal(row.value(Column{static_cast<int32_t>(literals.size())}), column.kind));
    } catch (const UnfitValue& unfit) {
      throw Failure(ExitCode::database, "a row of " + std::string(table.name) +
                                            " cannot be used: " + std::string(column.name) + " " + unfit.what() +
                                            "; vestara doctor says more");
    }
  }
  return literals;
}

/// New keys in the order of the old ones.
void copy_rows(const ArchiveSession& from, const ArchiveSession& to, const ArchiveTable& table,
               const std::string& condition) {
  auto rows = from.rows("SELECT " + column_list(table) + " FROM " + std::string(table.name) + condition);
  InsertBatch batch(to, table);
  for (; !rows->at_end(); rows->move_next()) batch.add(literals_of(*rows, table));
  from.connector()->CloseRecordset(rows);
  batch.flush();
}

}  // namespace

ArchiveSession archive_excerpt(const ArchiveSession& session, const DrawRange& range) {
  ArchiveSession excerpt = ArchiveSession::in_memory();
  const ArchiveTable& wheels = *archive_table("ruote");
  Transaction transaction(excerpt);
  if (!excerpt.connector()->ExecuteSql("DELETE FROM " + std::string(wheels.name)))
    excerpt.fail("no excerpt can be made");
  copy_rows(session, excerpt, wheels, "");
  const ArchiveTable& draws = *archive_table("storico");
  copy_rows(session, excerpt, {draws.name, draws.columns.subspan(1)}, range_condition(range) + " ORDER BY id");
  transaction.commit();
  return excerpt;
}

}  // namespace vestara::host
