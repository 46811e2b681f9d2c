#include "vestara/keeping/copy/archive_copy.h"

#include <array>
#include <string>

#include "automation/error.h"
#include "vestara/foundation/failure.h"
#include "vestara/keeping/copy/insert_batch.h"
#include "vestara/keeping/copy/row_progress.h"
#include "vestara/keeping/copy/table_comparison.h"
#include "vestara/keeping/copy/table_reader.h"
#include "vestara/keeping/import/manual_marks.h"

namespace vestara {
namespace {

using Tables = std::vector<ArchiveTable>;

/// A transaction that changes nothing: it keeps other programs' changes away from what is read, where the engine and
/// the user's rights have that. Without it the comparison finds what came in between.
class SteadySource {
 public:
  explicit SteadySource(const Archive& archive) : archive_(archive) {
    try {
      archive_.connector()->BeginTrans();
    } catch (const automation::RunTimeError&) {
      end();
    }
  }
  SteadySource(const SteadySource&) = delete;
  SteadySource& operator=(const SteadySource&) = delete;
  ~SteadySource() { end(); }

 private:
  void end() const {
    try {
      archive_.connector()->RollbackTrans();
    } catch (const automation::RunTimeError&) {
      return;  // the next statement says what is wrong
    }
  }

  const Archive& archive_;
};

void require_empty(const Archive& to) {
  constexpr std::array<std::string_view, 4> contents{"draws", "searches", "systems", "combinations of systems"};
  for (size_t i = 0; i < contents.size(); ++i)
    if (const int64_t rows = row_count(to, archive_tables()[i]); rows != 0)
      throw Failure(FailureKind::argument, "the archive copied to holds " + std::string(contents[i]) + " already (" +
                                               std::to_string(rows) + " in " + std::string(archive_tables()[i].name) +
                                               "), nothing was changed; --replace puts the copy in their place");
}

/// True when the draws' keys begin where an import could have begun.
bool has_low_keys(const Archive& from) {
  auto rows = from.rows("SELECT id FROM storico WHERE id<1000000000 ORDER BY id LIMIT 1");
  const bool are_low = !rows->at_end();
  from.connector()->CloseRecordset(rows);
  return are_low;
}

/// A table of draws that is emptied without a condition gets its indexes when it is full again, which is several times
/// faster; but a connector takes that for an import and may number high keys anew.
void empty_tables(const Archive& to, const Tables& tables, bool low_keys) {
  for (const ArchiveTable& table : tables)
    to.execute("DELETE FROM " + std::string(table.name) + (low_keys ? "" : " WHERE 1=1"),
               "table " + std::string(table.name) + " cannot be emptied, nothing was changed");
}

void copy_rows(const Archive& from, const Archive& to, const ArchiveTable& table, RowProgress& progress) {
  TableReader rows(from, table);
  InsertBatch batch(to, table);
  while (const LiteralRow* row = rows.next()) {
    batch.add(*row);
    progress.advance();
  }
  batch.flush();
}

}  // namespace

std::vector<CopiedTable> copy_archive(const Archive& from, const Archive& to, HeldRows held, const Progress& progress) {
  if (held == HeldRows::refuse) require_empty(to);
  Tables tables(archive_tables().begin(), archive_tables().end());
  // Details go before their systems.
  Tables emptied(tables.rbegin(), tables.rend());
  ManualMarks marks(to);
  if (ManualMarks(from).has_table()) {
    marks.make_table();
    tables.push_back(marks_table());
  }
  if (marks.has_table()) emptied.push_back(marks_table());
  const SteadySource steady(from);
  Transaction transaction(to);
  // Once more: from here on nobody else writes.
  if (held == HeldRows::refuse) require_empty(to);
  int64_t rows = 0;
  for (const ArchiveTable& table : tables) rows += row_count(from, table);
  RowProgress counted(progress, rows);
  empty_tables(to, emptied, has_low_keys(from));
  for (const ArchiveTable& table : tables) copy_rows(from, to, table, counted);
  std::vector<CopiedTable> copied;
  for (const ArchiveTable& table : tables) copied.push_back({table.name, compare_tables(from, to, table, counted)});
  counted.finish();
  transaction.commit();
  return copied;
}

}  // namespace vestara
