#include "hosts/vestara/archive_import.h"

#include <algorithm>
#include <span>
#include <string>

#include "automation/text.h"
#include "hosts/vestara/draw_file_writer.h"
#include "hosts/vestara/failure.h"
#include "hosts/vestara/import_progress.h"
#include "hosts/vestara/manual_marks.h"
#include "hosts/vestara/temporary_file.h"
#include "vestara/archive/history_text.h"
#include "vestara/archive/lotto.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/schema.h"

namespace vestara::host {
namespace {

std::string update_text(std::span<const DrawRow> rows) {
  constexpr size_t usual_record = 40;
  std::string text;
  text.reserve(rows.size() * usual_record);
  DrawFileWriter writer(DrawFormat::update);
  writer.begin(text);
  for (const DrawRow& row : rows) writer.add(text, row);
  return text;
}

/// The library's own import: it empties the archive and writes the whole thousands.
void import_thousands(const ArchiveSession& session, std::span<const DrawRow> rows, std::ostream& err) {
  const TemporaryFile file(update_text(rows));
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  lotto.DbType(static_cast<int16_t>(DatabaseType::many_rows_per_insert));
  lotto.FileUpdate(file.path());
  const ImportProgress progress(lotto, err);
  if (!lotto.UpdateTblStorico()) session.fail("the import did not work, nothing was changed, see " + log_path());
}

/// What the multi-row import leaves behind the last whole thousand.
void import_remainder(const ArchiveSession& session, std::span<const DrawRow> rows) {
  const auto remainder = rows.last(rows.size() % static_cast<size_t>(rows_per_statement));
  if (remainder.empty()) return;
  const std::string text = update_text(remainder);
  std::string tuples;
  for (const std::string_view record : automation::split(text, '*')) {
    if (!tuples.empty()) tuples += ',';
    tuples += history_tuple(parse_history_record(record));
  }
  if (!session.connector()->ExecuteSql(history_insert_statement(tuples)))
    session.fail("the import did not work, nothing was changed");
}

void require_stored(const ArchiveSession& session, size_t rows) {
  auto counted = session.rows("SELECT count(*) AS found FROM storico");
  const auto stored = counted->at_end() ? 0 : counted->whole_number(counted->column("found"));
  session.connector()->CloseRecordset(counted);
  if (static_cast<size_t>(stored) == rows) return;
  throw Failure(ExitCode::database, "the archive took " + std::to_string(stored) + " of " + std::to_string(rows) +
                                        " rows, nothing was changed; it must be empty after a DELETE and keep every "
                                        "row");
}

}  // namespace

ImportPlan replace_archive(const ArchiveSession& session, const std::vector<DrawRow>& rows, MissingManual missing,
                           std::ostream& err) {
  const ManualMarks marks(session);
  Transaction transaction(session);
  ImportPlan plan = plan_import(held_draws(session), marks.days(), rows, missing);
  import_thousands(session, plan.rows, err);
  import_remainder(session, plan.rows);
  require_stored(session, plan.rows.size());
  for (const int32_t day : plan.old_marks)
    if (!marks.remove(day)) session.fail("the import did not work, nothing was changed");
  transaction.commit();
  return plan;
}

}  // namespace vestara::host
