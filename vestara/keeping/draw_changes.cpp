#include "vestara/keeping/draw_changes.h"

#include "automation/int16.h"
#include "automation/yield.h"
#include "vestara/foundation/query.h"
#include "vestara/keeping/draw_text.h"
#include "vestara/keeping/history_batch.h"
#include "vestara/keeping/history_text.h"

namespace vestara {
namespace {

void execute(DbConnector& connector, std::string_view statement) {
  if (!connector.ExecuteSql(statement)) throw statement_refused("to remove draws");
}

}  // namespace

void insert_draws(DbConnector& connector, DatabaseType type, std::span<const DrawRow> rows, Remainder remainder,
                  const StoredProgress& progress) {
  const int32_t count = automation::checked_long(static_cast<int64_t>(rows.size()));
  const size_t at_once = type == DatabaseType::one_row_per_insert ? 1 : rows_per_statement;
  const auto add = [&](HistoryBatch& batch, size_t row) { batch.add(rows[row]); };
  const auto sent = [&](size_t stored) {
    if (progress) progress(static_cast<int32_t>(stored), count);
    automation::yield_to_host();
  };
  if (!send_rows(connector, rows.size(), at_once, remainder, add, sent)) throw statement_refused("the draws");
}

void import_draws(DbConnector& connector, DatabaseType type, std::span<const DrawRow> rows, Remainder remainder,
                  const StoredProgress& progress) {
  delete_all_draws(connector);
  insert_draws(connector, type, rows, remainder, progress);
}

void delete_all_draws(DbConnector& connector) { execute(connector, history_delete_statement()); }

void delete_draw(DbConnector& connector, automation::Date day) { execute(connector, draw_delete_statement(day)); }

void save_draw(DbConnector& connector, automation::Date day, std::span<const DrawRow> rows) {
  connector.BeginTrans();
  try {
    delete_draw(connector, day);
    // No yield here: the host must not come between the two.
    HistoryBatch batch(connector);
    for (const DrawRow& row : rows) batch.add(row);
    if (!rows.empty() && !batch.send()) throw statement_refused("the draw");
  } catch (...) {
    connector.RollbackTrans();
    throw;
  }
  connector.CommitTrans();
}

}  // namespace vestara
