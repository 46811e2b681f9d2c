#include "dorvane/sqlite/connection.h"

#include <atomic>
#include <memory>
#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "dorvane/result_names.h"
#include "dorvane/sqlite/dialect.h"
#include "dorvane/sqlite/draw_handover.h"
#include "dorvane/sqlite/errors.h"
#include "dorvane/sqlite/result.h"
#include "dorvane/statement.h"
#include "dorvane/tie_order.h"
#include "records/static_recordset.h"

namespace dorvane::sqlite {

using automation::Ref;
using automation::RunTimeError;

namespace {

/// Rows that an opened record set holds at once: small sets are complete and free their statement.
constexpr size_t rows_ahead = 100;

const Engine registered("sqlite", "sqlite:archive.sqlite", [](const Url& url) -> std::unique_ptr<Connection> {
  return std::make_unique<SqliteConnection>(url);
});

}  // namespace

SqliteConnection::SqliteConnection(const Url& url)
    // Read whole before the file is touched: a wrong option must not leave an empty archive behind.
    : guard_(prohibitions), settings_(file_settings(url)) {
  open();
}

void SqliteConnection::open() {
  count_a_change();
  stamp_ = stamp_of(settings_.path);
  frozen_ = false;
  try {
    session_.attach(open_file(settings_), settings_);
  } catch (const RunTimeError&) {
    if (!lies_in_a_closed_folder(settings_.path)) throw;
    if (has_waiting_changes(settings_.path))
      throw automation::path_file_access(
          "sqlite: " + settings_.path +
          " lies in a folder that this user may not write to, and changes wait beside it that "
          "can only be read there; a user who may write opens and closes the archive once");
    session_.attach(open_frozen(settings_.path), settings_);
    frozen_ = true;
  }
  indexes_.look();
}

void SqliteConnection::count_a_change() {
  static std::atomic<uint64_t> changes{0};
  own_changes_ = ++changes;
}

std::optional<vestara::ChangeMark> SqliteConnection::change_mark() {
  read_anew_if_changed();
  return vestara::ChangeMark{own_changes_, static_cast<uint64_t>(session_.single_number("PRAGMA data_version"))};
}

bool SqliteConnection::hand_over_draws(const vestara::TakeDraw& take) {
  transaction_.require_not_lost();
  // Without locks only what was read at once, and perhaps again, was read of one archive.
  if (frozen_) return false;
  repair_before_read();
  StatementClock clock(settings_.reading_limit);
  const RunningClock running(session_.running_clock(), clock);
  const Statement statement = session_.prepare(handover_statement, Permission::anything);
  DrawHandover handover(session_.draw_handover(), take);
  return sqlite3_step(statement.get()) == SQLITE_ROW && handover.is_complete();
}

SqliteConnection::~SqliteConnection() {
  open_rows_.complete();
  inserts_.forget();
  if (transaction_.is_open()) session_.attempt("ROLLBACK");
  if (!transaction_.is_none()) indexes_.transaction_was_taken_back();
  transaction_.ended();
  try {
    if (indexes_.are_owed()) rebuild_indexes();
  } catch (const RunTimeError&) {
    return;  // a correct, slow archive: the next import or CreateSchema repairs it
  }
}

template <class Body>
void SqliteConnection::noticing_loss(Body&& body) {
  // A full disk, among others, makes the engine roll everything back by itself.
  transaction_.around(body, [this] { return session_.is_inside_transaction(); });
}

Statement SqliteConnection::prepare_reading(std::string_view statement) {
  const std::string text = translate(statement);
  if (const std::string term = tie_term(statement, syntax); !term.empty()) {
    try {
      return session_.prepare(text + term, Permission::read);
    } catch (const RunTimeError&) {
      return session_.prepare(text, Permission::read);
    }
  }
  return session_.prepare(text, Permission::read);
}

void SqliteConnection::read_anew_if_changed() {
  if (!frozen_ || stamp_of(settings_.path) == stamp_) return;
  inserts_.forget();
  open();
  if (transaction_.is_open()) session_.run("BEGIN", Permission::anything);
}

template <class Body>
auto SqliteConnection::steadily(Body&& body) {
  constexpr int attempts = 3;
  for (int attempt = 1; frozen_ && attempt <= attempts; ++attempt) {
    read_anew_if_changed();
    try {
      auto result = body();
      if (!frozen_ || stamp_of(settings_.path) == stamp_) return result;
    } catch (const RunTimeError&) {
      if (!frozen_ || stamp_of(settings_.path) == stamp_) throw;
    }
    if (attempt == attempts)
      throw automation::permission_denied(
          "sqlite: another program changes the archive while it is read; try again when it is done");
  }
  return body();
}

Ref<records::StaticRecordSet> SqliteConnection::query(std::string_view statement) {
  transaction_.require_not_lost();
  guard_.require_reading(statement);
  repair_before_read();
  return steadily([&] {
    auto rows = started(statement);
    // Without locks only what was read at once was read of one archive.
    if (frozen_)
      rows->record_count();
    else
      rows->prefetch(rows_ahead);
    return rows;
  });
}

Ref<records::StaticRecordSet> SqliteConnection::started(std::string_view statement) {
  Statement prepared = prepare_reading(statement);
  auto headers = headers_of(prepared.get());
  if (headers.empty())
    throw refused_statement("sqlite", automation::concatenated({"returns no rows: ", statement}), statement);
  spell_names(statement, syntax, headers);
  auto source =
      std::make_unique<Rows>(session_.database(), std::move(prepared),
                             RowClock{session_.running_clock(), StatementClock(settings_.reading_limit)}, open_rows_);
  return automation::make<records::StaticRecordSet>(std::move(headers), std::move(source));
}

template <class Change>
void SqliteConnection::change(bool alters_tables, Change&& body) {
  count_a_change();
  open_rows_.complete();
  const int changed_before = sqlite3_total_changes(session_.database());
  StatementClock clock(settings_.changing_limit);
  const RunningClock running(session_.running_clock(), clock);
  noticing_loss(std::forward<Change>(body));
  if (alters_tables || sqlite3_total_changes(session_.database()) != changed_before) transaction_.changed();
}

void SqliteConnection::execute(std::string_view statement) {
  transaction_.require_not_lost();
  const bool recognised = recognise_insert(statement, syntax, values_);
  if (!recognised) guard_.require_change(statement);
  change(!recognised && changes_tables(statement, syntax), [&] {
    if (recognised)
      inserts_.insert(values_.head, values_.columns, values_.literals);
    else if (empties_the_archive(statement, syntax))
      indexes_.empty_draws(statement);
    else
      session_.run(translate(statement), Permission::change);
  });
}

void SqliteConnection::insert(const vestara::NewRows& rows) {
  transaction_.require_not_lost();
  const std::string head = insert_head(rows);
  if (rows.values.empty()) return;
  change(false, [&] { inserts_.insert(head, rows.columns.size(), rows.values); });
}

void SqliteConnection::rebuild_indexes() {
  noticing_loss([&] { indexes_.rebuild(); });
}

void SqliteConnection::repair_before_read() {
  if (!indexes_.are_owed()) return;
  try {
    rebuild_indexes();
  } catch (const RunTimeError&) {
    // The answer is the same without them, only slower.
    indexes_.owe_nothing();
    transaction_.require_not_lost();
  }
}

int32_t SqliteConnection::max_id(std::string_view table, std::string_view column) {
  transaction_.require_not_lost();
  const std::string statement = largest_value(table, column);
  repair_before_read();
  const int64_t largest = steadily([&] {
    StatementClock clock(settings_.reading_limit);
    const RunningClock running(session_.running_clock(), clock);
    return session_.single_number(statement);
  });
  return automation::round_to_long(static_cast<double>(largest));
}

void SqliteConnection::begin() {
  if (!transaction_.is_none()) rollback();
  open_rows_.complete();
  indexes_.transaction_begins();
  try {
    session_.run("BEGIN IMMEDIATE", Permission::anything);
    transaction_.opened();
  } catch (const RunTimeError& error) {
    transaction_.lost(error.description());
    throw;
  }
}

void SqliteConnection::commit() {
  transaction_.require_begun();
  try {
    transaction_.require_not_lost();
    open_rows_.complete();
    if (indexes_.are_owed()) rebuild_indexes();
    session_.run("COMMIT", Permission::anything);
    transaction_.ended();
  } catch (...) {
    rollback();
    throw;
  }
}

void SqliteConnection::rollback() {
  if (transaction_.is_none()) return;
  count_a_change();
  open_rows_.complete();
  if (session_.is_inside_transaction()) session_.run("ROLLBACK", Permission::anything);
  transaction_.ended();
  indexes_.transaction_was_taken_back();
}

void SqliteConnection::create_schema() {
  transaction_.require_not_lost();
  count_a_change();
  open_rows_.complete();
  const bool fresh = session_.single_number("SELECT count(*) FROM sqlite_master") == 0;
  // Readers and one writer at a time beside each other; only a file that is still empty is switched over. Another
  // program that creates the same archive just now may be ahead: then it is switched already.
  if (fresh && transaction_.is_none()) session_.attempt("PRAGMA journal_mode=WAL");
  noticing_loss([&] {
    session_.atomically([&] {
      for (const vestara::ArchiveTable& table : vestara::archive_tables())
        session_.run(table_statement(table), Permission::anything);
      session_.run(wheels_statement(), Permission::anything);
      session_.run(index_statement(lasting_index()), Permission::anything);
      indexes_.create();
    });
  });
  transaction_.changed();
  indexes_.owe_nothing();
}

}  // namespace dorvane::sqlite
