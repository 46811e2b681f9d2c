#include "dorvane/sqlite/connection.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "dorvane/recordset.h"
#include "dorvane/result_names.h"
#include "dorvane/sqlite/dialect.h"
#include "dorvane/sqlite/errors.h"
#include "dorvane/sqlite/like.h"
#include "dorvane/sqlite/result.h"
#include "dorvane/statement.h"
#include "dorvane/tie_order.h"

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
  stamp_ = stamp_of(settings_.path);
  frozen_ = false;
  try {
    attach(open_file(settings_));
  } catch (const RunTimeError&) {
    if (!lies_in_a_closed_folder(settings_.path)) throw;
    if (has_waiting_changes(settings_.path))
      throw RunTimeError(75, "sqlite: " + settings_.path +
                                 " lies in a folder that this user may not write to, and changes wait beside it that "
                                 "can only be read there; a user who may write opens and closes the archive once");
    attach(open_frozen(settings_.path));
    frozen_ = true;
  }
  indexes_owed_ = was_left_without_indexes();
}

void SqliteConnection::attach(Database database) {
  database_ = std::move(database);
  // First of all: whatever looks at the file may have to wait for another program.
  sqlite3_busy_timeout(database_.get(), settings_.timeout);
  close_side_doors();
  install_like(database_.get());
  sqlite3_set_authorizer(database_.get(), &SqliteConnection::authorize, this);
  sqlite3_progress_handler(database_.get(), StatementClock::instructions, &SqliteConnection::tick, this);
  run("PRAGMA synchronous=" + settings_.durability, Permission::anything);
  run("PRAGMA analysis_limit=1000", Permission::anything);
  // The first real look at the file: it says now, not at the first question, that this is no archive.
  single_number("SELECT count(*) FROM sqlite_master");
}

int SqliteConnection::tick(void* self) {
  StatementClock* const clock = static_cast<SqliteConnection*>(self)->running_;
  return !clock || clock->may_go_on() ? 0 : 1;
}

SqliteConnection::~SqliteConnection() {
  complete_record_sets();
  insert_ = nullptr;
  if (transaction_.is_open()) attempt("ROLLBACK");
  if (!transaction_.is_none()) indexes_owed_ = indexes_owed_at_begin_;
  transaction_.ended();
  try {
    if (indexes_owed_) rebuild_indexes();
  } catch (const RunTimeError&) {
    return;  // a correct, slow archive: the next import or CreateSchema repairs it
  }
}

void SqliteConnection::close_side_doors() {
  sqlite3* const database = database_.get();
  for (const auto& [setting, value] : {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                       {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                       {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
                                       {SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0}})
    require_ok(sqlite3_db_config(database, setting, value, nullptr), database);
  const Statement listed =
      prepare("SELECT name FROM pragma_function_list WHERE (flags & " + std::to_string(SQLITE_INNOCUOUS) + ")=0",
              Permission::anything);
  while (sqlite3_step(listed.get()) == SQLITE_ROW) {
    const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(listed.get(), 0));
    if (!only_computes(name)) refused_functions_.insert(automation::lower_case(name));
  }
}

int SqliteConnection::authorize(void* self, int action, const char*, const char* second, const char*, const char*) {
  const auto& connection = *static_cast<SqliteConnection*>(self);
  const Permission permission = connection.permission_;
  if (permission == Permission::anything) return SQLITE_OK;
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    case SQLITE_FUNCTION:
      return connection.refused_functions_.contains(automation::lower_case(second)) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
    case SQLITE_PRAGMA:
    case SQLITE_ANALYZE:
    case SQLITE_CREATE_VTABLE:
      return SQLITE_DENY;
    default:
      return permission == Permission::change ? SQLITE_OK : SQLITE_DENY;
  }
}

Statement SqliteConnection::prepare(std::string_view statement, Permission permission) {
  if (statement.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
    throw RunTimeError(7, "sqlite: the statement is longer than 2 GiB");
  if (statement.find('\0') != std::string_view::npos)
    throw RunTimeError(5, "sqlite: the statement holds a NUL character");
  const Permitting permitting(*this, permission);
  sqlite3_stmt* prepared = nullptr;
  const char* tail = nullptr;
  const int code =
      sqlite3_prepare_v2(database_.get(), statement.data(), static_cast<int>(statement.size()), &prepared, &tail);
  Statement result(prepared);
  require_ok(code, database_.get(), statement);
  if (!result) throw RunTimeError(5, "sqlite: the statement is empty");
  if (!is_trivia(statement.substr(static_cast<size_t>(tail - statement.data())), syntax))
    throw RunTimeError(5, "sqlite: one statement a call, here are several: " + std::string(statement.substr(0, 160)));
  return result;
}

void SqliteConnection::run(std::string_view statement, Permission permission) {
  const Permitting permitting(*this, permission);
  const Statement prepared = prepare(statement, permission);
  int code = SQLITE_ROW;
  while (code == SQLITE_ROW) code = sqlite3_step(prepared.get());
  require_ok(code, database_.get(), statement);
}

void SqliteConnection::attempt(const char* statements) noexcept {
  const Permitting permitting(*this, Permission::anything);
  sqlite3_exec(database_.get(), statements, nullptr, nullptr, nullptr);
}

int64_t SqliteConnection::single_number(std::string_view statement) {
  const Permitting permitting(*this, Permission::anything);
  const Statement prepared = prepare(statement, Permission::anything);
  require_ok(sqlite3_step(prepared.get()), database_.get(), statement);
  return sqlite3_column_int64(prepared.get(), 0);
}

template <class Body>
void SqliteConnection::noticing_loss(Body&& body) {
  // A full disk, among others, makes the engine roll everything back by itself.
  transaction_.around(body, [this] { return sqlite3_get_autocommit(database_.get()) == 0; });
}

template <class Body>
void SqliteConnection::atomically(Body&& body) {
  // Outside a transaction the right to write comes first: one that begins by reading can be refused it later, at once
  // and for good, when another program wrote in between.
  const bool outermost = sqlite3_get_autocommit(database_.get()) != 0;
  run(outermost ? "BEGIN IMMEDIATE" : "SAVEPOINT vestara", Permission::anything);
  try {
    body();
    run(outermost ? "COMMIT" : "RELEASE vestara", Permission::anything);
  } catch (...) {
    // Where the engine rolled back by itself there is nothing left to undo, and these do nothing.
    const char* const undo = outermost ? "ROLLBACK" : "ROLLBACK TO vestara; RELEASE vestara";
    attempt(undo);
    throw;
  }
}

Statement SqliteConnection::prepare_reading(std::string_view statement) {
  const std::string text = translate(statement);
  if (const std::string term = tie_term(statement, syntax); !term.empty()) {
    try {
      return prepare(text + term, Permission::read);
    } catch (const RunTimeError&) {
      return prepare(text, Permission::read);
    }
  }
  return prepare(text, Permission::read);
}

void SqliteConnection::read_anew_if_changed() {
  if (!frozen_ || stamp_of(settings_.path) == stamp_) return;
  insert_ = nullptr;
  open();
  if (transaction_.is_open()) run("BEGIN", Permission::anything);
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
      throw RunTimeError(70, "sqlite: another program changes the archive while it is read; try again when it is done");
  }
  return body();
}

Ref<StaticRecordSet> SqliteConnection::query(std::string_view statement) {
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

Ref<StaticRecordSet> SqliteConnection::started(std::string_view statement) {
  Statement prepared = prepare_reading(statement);
  auto headers = headers_of(prepared.get());
  if (headers.empty()) throw RunTimeError(5, "sqlite: the statement returns no rows: " + std::string(statement));
  spell_names(statement, syntax, headers);
  const auto place = std::make_shared<StaticRecordSet*>(nullptr);
  auto source = std::make_unique<Rows>(database_.get(), std::move(prepared),
                                       RowClock{running_, StatementClock(settings_.reading_limit)},
                                       [this, place] { forget(*place); });
  auto rows = automation::make<StaticRecordSet>(std::move(headers), std::move(source));
  *place = rows.get();
  unfinished_.push_back(rows.get());
  return rows;
}

template <class Change>
void SqliteConnection::change(bool alters_tables, Change&& body) {
  complete_record_sets();
  const int changed_before = sqlite3_total_changes(database_.get());
  StatementClock clock(settings_.changing_limit);
  const RunningClock running(running_, clock);
  noticing_loss(std::forward<Change>(body));
  if (alters_tables || sqlite3_total_changes(database_.get()) != changed_before) transaction_.changed();
}

void SqliteConnection::execute(std::string_view statement) {
  transaction_.require_not_lost();
  const bool recognised = recognise_insert(statement, syntax, values_);
  if (!recognised) guard_.require_change(statement);
  change(!recognised && changes_tables(statement, syntax), [&] {
    if (recognised)
      insert_rows(values_.head, values_.columns, values_.literals);
    else if (empties_the_archive(statement, syntax))
      empty_archive(statement);
    else
      run(translate(statement), Permission::change);
  });
}

void SqliteConnection::insert(const vestara::NewRows& rows) {
  transaction_.require_not_lost();
  const std::string head = insert_head(rows);
  if (rows.values.empty()) return;
  change(false, [&] { insert_rows(head, rows.columns.size(), rows.values); });
}

namespace {

void bind(sqlite3_stmt* insert, int place, const Literal& value) {
  switch (value.kind) {
    case Literal::Kind::null:
      sqlite3_bind_null(insert, place);
      break;
    case Literal::Kind::whole:
      sqlite3_bind_int64(insert, place, value.number);
      break;
    case Literal::Kind::text:
      // A view of nothing may have no bytes to point at, and would be bound as NULL.
      sqlite3_bind_text(insert, place, value.text.empty() ? "" : value.text.data(), static_cast<int>(value.text.size()),
                        SQLITE_STATIC);
  }
}

}  // namespace

void SqliteConnection::insert_rows(std::string_view head, size_t columns, std::span<const Literal> values) {
  const Permitting permitting(*this, Permission::change);
  sqlite3_stmt* const prepared = insert_statement(head, columns);
  const auto insert_all = [&] {
    for (auto rest = values; !rest.empty(); rest = rest.subspan(columns)) {
      for (size_t i = 0; i < columns; ++i) bind(prepared, static_cast<int>(i + 1), rest[i]);
      const int code = sqlite3_step(prepared);
      sqlite3_reset(prepared);
      require_ok(code, database_.get(), head);
    }
  };
  if (values.size() == columns)
    insert_all();
  else
    atomically(insert_all);
}

sqlite3_stmt* SqliteConnection::insert_statement(std::string_view head, size_t columns) {
  if (insert_ && insert_columns_ == columns && insert_head_ == head) return insert_.get();
  std::string text(head);
  for (size_t i = 0; i < columns; ++i) text += i == 0 ? "(?" : ",?";
  insert_ = prepare(text + ")", Permission::change);
  insert_head_ = head;
  insert_columns_ = columns;
  return insert_.get();
}

/// With the rows go the indexes: filling the table without them and building them once is twice as fast.
void SqliteConnection::empty_archive(std::string_view statement) {
  if (!owns_indexes()) return run(statement, Permission::change);
  atomically([&] {
    for (const Creation& index : draw_indexes())
      run("DROP INDEX IF EXISTS " + std::string(index.name), Permission::anything);
    run(statement, Permission::change);
  });
  indexes_owed_ = true;
}

void SqliteConnection::create_indexes() {
  for (const Creation& index : draw_indexes()) run(index.statement, Permission::anything);
  run("ANALYZE", Permission::anything);
}

void SqliteConnection::rebuild_indexes() {
  noticing_loss([&] { atomically([&] { create_indexes(); }); });
  indexes_owed_ = false;
}

void SqliteConnection::repair_before_read() {
  if (!indexes_owed_) return;
  try {
    rebuild_indexes();
  } catch (const RunTimeError&) {
    // The answer is the same without them, only slower.
    indexes_owed_ = false;
    transaction_.require_not_lost();
  }
}

int32_t SqliteConnection::max_id(std::string_view table, std::string_view column) {
  transaction_.require_not_lost();
  const std::string statement = largest_value(table, column);
  repair_before_read();
  const int64_t largest = steadily([&] {
    StatementClock clock(settings_.reading_limit);
    const RunningClock running(running_, clock);
    return single_number(statement);
  });
  return automation::round_to_long(static_cast<double>(largest));
}

void SqliteConnection::begin() {
  if (!transaction_.is_none()) rollback();
  complete_record_sets();
  indexes_owed_at_begin_ = indexes_owed_;
  try {
    run("BEGIN IMMEDIATE", Permission::anything);
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
    complete_record_sets();
    if (indexes_owed_) rebuild_indexes();
    run("COMMIT", Permission::anything);
    transaction_.ended();
  } catch (...) {
    rollback();
    throw;
  }
}

void SqliteConnection::rollback() {
  if (transaction_.is_none()) return;
  complete_record_sets();
  if (sqlite3_get_autocommit(database_.get()) == 0) run("ROLLBACK", Permission::anything);
  transaction_.ended();
  indexes_owed_ = indexes_owed_at_begin_;
}

void SqliteConnection::create_schema() {
  transaction_.require_not_lost();
  complete_record_sets();
  const bool fresh = single_number("SELECT count(*) FROM sqlite_master") == 0;
  // Readers and one writer at a time beside each other; only a file that is still empty is switched over. Another
  // program that creates the same archive just now may be ahead: then it is switched already.
  if (fresh && transaction_.is_none()) attempt("PRAGMA journal_mode=WAL");
  noticing_loss([&] {
    atomically([&] {
      for (const std::string_view statement : table_statements()) run(statement, Permission::anything);
      run(wheels_statement(), Permission::anything);
      run(lasting_index().statement, Permission::anything);
      create_indexes();
    });
  });
  transaction_.changed();
  indexes_owed_ = false;
}

void SqliteConnection::complete_record_sets() noexcept {
  while (!unfinished_.empty()) unfinished_.back()->complete();
}

void SqliteConnection::forget(const StaticRecordSet* rows) { std::erase(unfinished_, rows); }

}  // namespace dorvane::sqlite
