#include "hosts/cli/keeping/archive_copy.h"

#include <array>
#include <string>

#include "automation/error.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/keeping/insert_batch.h"
#include "hosts/cli/keeping/manual_marks.h"
#include "hosts/cli/keeping/table_comparison.h"
#include "hosts/cli/keeping/table_reader.h"
#include "hosts/cli/terminal/copy_progress.h"

namespace vestara::host {
namespace {

using Tables = std::vector<ArchiveTable>;

/// A transaction that changes nothing: it keeps other programs' changes away from what is read, where the engine and
/// the user's rights have that. Without it the comparison finds what came in between.
class SteadySource {
 public:
  explicit SteadySource(const ArchiveSession& session) : session_(session) {
    try {
      session_.connector()->BeginTrans();
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
      session_.connector()->RollbackTrans();
    } catch (const automation::RunTimeError&) {
      return;  // the next statement says what is wrong
    }
  }

  const ArchiveSession& session_;
};

void require_empty(const ArchiveSession& to) {
  constexpr std::array<std::string_view, 4> contents{"draws", "searches", "systems", "combinations of systems"};
  for (size_t i = 0; i < contents.size(); ++i)
    if (const int64_t rows = row_count(to, archive_tables()[i]); rows != 0)
      throw Failure(ExitCode::usage, "the archive copied to holds " + std::string(contents[i]) + " already (" +
                                         std::to_string(rows) + " in " + std::string(archive_tables()[i].name) +
                                         "), nothing was changed; --replace puts the copy in their place");
}

/// True when the draws' keys begin where an import could have begun.
bool has_low_keys(const ArchiveSession& from) {
  auto rows = from.rows("SELECT id FROM storico WHERE id<1000000000 ORDER BY id LIMIT 1");
  const bool are_low = !rows->at_end();
  from.connector()->CloseRecordset(rows);
  return are_low;
}

/// A table of draws that is emptied without a condition gets its indexes when it is full again, which is several times
/// faster; but a connector takes that for an import and may number high keys anew.
void empty_tables(const ArchiveSession& to, const Tables& tables, bool low_keys) {
  for (const ArchiveTable& table : tables)
    if (!to.connector()->ExecuteSql("DELETE FROM " + std::string(table.name) + (low_keys ? "" : " WHERE 1=1")))
      to.fail("table " + std::string(table.name) + " cannot be emptied, nothing was changed");
}

void copy_rows(const ArchiveSession& from, const ArchiveSession& to, const ArchiveTable& table,
               CopyProgress& progress) {
  TableReader rows(from, table);
  InsertBatch batch(to, table);
  while (const LiteralRow* row = rows.next()) {
    batch.add(*row);
    progress.advance();
  }
  batch.flush();
}

}  // namespace

std::vector<CopiedTable> copy_archive(const ArchiveSession& from, const ArchiveSession& to, HeldRows held,
                                      std::ostream& err) {
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
  CopyProgress progress(err, rows);
  empty_tables(to, emptied, has_low_keys(from));
  for (const ArchiveTable& table : tables) copy_rows(from, to, table, progress);
  std::vector<CopiedTable> copied;
  for (const ArchiveTable& table : tables) copied.push_back({table.name, compare_tables(from, to, table, progress)});
  progress.check_interruption();
  transaction.commit();
  return copied;
}

}  // namespace vestara::host
