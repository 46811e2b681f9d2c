#include "dorvane/sqlite/session.h"

#include <limits>

#include "automation/error.h"
#include "automation/text.h"
#include "dorvane/sqlite/dialect.h"
#include "dorvane/sqlite/draw_handover.h"
#include "dorvane/sqlite/errors.h"
#include "dorvane/sqlite/like.h"
#include "dorvane/statement.h"

namespace dorvane::sqlite {

void Session::attach(Database database, const FileSettings& settings) {
  database_ = std::move(database);
  reading_limit_ = settings.reading_limit;
  // First of all: whatever looks at the file may have to wait for another program.
  sqlite3_busy_timeout(database_.get(), settings.timeout);
  install_draw_handover(database_.get(), handover_);
  close_side_doors();
  install_like(database_.get());
  sqlite3_set_authorizer(database_.get(), &Session::authorize, this);
  sqlite3_progress_handler(database_.get(), StatementClock::instructions, &Session::tick, this);
  run("PRAGMA synchronous=" + settings.durability, Permission::anything);
  run("PRAGMA analysis_limit=1000", Permission::anything);
  // The first real look at the file: it says now, not at the first question, that this is no archive.
  single_number("SELECT count(*) FROM sqlite_master");
}

int Session::tick(void* self) {
  StatementClock* const clock = static_cast<Session*>(self)->running_;
  return !clock || clock->may_go_on() ? 0 : 1;
}

void Session::close_side_doors() {
  sqlite3* const database = database_.get();
  for (const auto& [setting, value] : {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                       {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                       {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
                                       {SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0}})
    require_ok(sqlite3_db_config(database, setting, value, nullptr), database);
  const Statement listed =
      prepare("SELECT name FROM pragma_function_list WHERE (flags & " + std::to_string(SQLITE_INNOCUOUS) + ")=0",
              Permission::anything);
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(listed.get())) == SQLITE_ROW) {
    const std::string name(text_of(listed.get()));
    if (!only_computes(name)) refused_functions_.insert(automation::lower_case(name));
  }
  require_ok(code, database);
}

int Session::authorize(void* self, int action, const char*, const char* second, const char*, const char*) {
  const auto& session = *static_cast<Session*>(self);
  const Permission permission = session.permission_;
  if (permission == Permission::anything) return SQLITE_OK;
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    case SQLITE_FUNCTION:
      return session.refused_functions_.contains(automation::lower_case(second)) ? SQLITE_DENY : SQLITE_OK;
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

Statement Session::prepare(std::string_view statement, Permission permission) {
  if (statement.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
    throw automation::out_of_memory("sqlite: the statement is longer than 2 GiB");
  if (statement.find('\0') != std::string_view::npos)
    throw refused_statement("sqlite", "holds a NUL character", statement);
  const Permitting permitting(*this, permission);
  sqlite3_stmt* prepared = nullptr;
  const char* tail = nullptr;
  const int code =
      sqlite3_prepare_v2(database_.get(), statement.data(), static_cast<int>(statement.size()), &prepared, &tail);
  Statement result(prepared);
  require_ok(code, database_.get(), statement);
  if (!result) throw refused_statement("sqlite", "is empty", statement);
  if (!is_trivia(statement.substr(static_cast<size_t>(tail - statement.data())), syntax))
    throw automation::invalid_call("sqlite: one statement a call, here are several: " +
                                   std::string(statement.substr(0, shown_statement)));
  return result;
}

void Session::run(std::string_view statement, Permission permission) {
  const Permitting permitting(*this, permission);
  const Statement prepared = prepare(statement, permission);
  int code = SQLITE_ROW;
  while (code == SQLITE_ROW) code = sqlite3_step(prepared.get());
  require_ok(code, database_.get(), statement);
}

void Session::attempt(const char* statements) noexcept {
  const Permitting permitting(*this, Permission::anything);
  sqlite3_exec(database_.get(), statements, nullptr, nullptr, nullptr);
}

int64_t Session::single_number(std::string_view statement) {
  const Permitting permitting(*this, Permission::anything);
  const Statement prepared = prepare(statement, Permission::anything);
  require_ok(sqlite3_step(prepared.get()), database_.get(), statement);
  return sqlite3_column_int64(prepared.get(), 0);
}

std::vector<std::string> Session::column_of(std::string_view statement) {
  StatementClock clock(reading_limit_);
  const RunningClock running(running_, clock);
  const Permitting permitting(*this, Permission::anything);
  const Statement prepared = prepare(statement, Permission::anything);
  std::vector<std::string> texts;
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(prepared.get())) == SQLITE_ROW)
    if (sqlite3_column_type(prepared.get(), 0) != SQLITE_NULL) texts.emplace_back(text_of(prepared.get()));
  require_ok(code, database_.get(), statement);
  return texts;
}

std::string_view text_of(sqlite3_stmt* row) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(row, 0));
  return text ? std::string_view(text) : std::string_view();
}

}  // namespace dorvane::sqlite
