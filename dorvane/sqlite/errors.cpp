#include "dorvane/sqlite/errors.h"

#include <sqlite3.h>

#include <cerrno>
#include <string>

#include "automation/text.h"
#include "dorvane/statement.h"

namespace dorvane::sqlite {

using automation::failure;
using automation::FailureKind;
using automation::Refusal;
using automation::RunTimeError;

namespace {

/// The error with a hint what to do, where that is known.
RunTimeError described(sqlite3* database, int code, std::string_view statement) {
  const auto told = [&](std::string_view hint) {
    return automation::concatenated({"sqlite: ", sqlite3_errmsg(database), hint, in_statement(statement)});
  };
  const int system_error = sqlite3_system_errno(database);
  switch (code) {
    case SQLITE_FULL:
      return automation::disk_full(told("; free some space, nothing was changed"));
    case SQLITE_PERM:
    case SQLITE_READONLY:
      return automation::permission_denied(told("; the archive can be read only"));
    case SQLITE_BUSY:
      return automation::permission_denied(
          told("; another program is changing the archive, try again when it is done"));
    case SQLITE_CANTOPEN:
      if (system_error == EMFILE || system_error == ENFILE)
        return automation::too_many_files(
            told("; too many files are open, in this process or on this machine (ulimit -n)"));
      return automation::path_not_found(told("; is the folder there, and may this user use it?"));
    case SQLITE_INTERRUPT:
      return failure(FailureKind::database,
                     told("; it took too long, statement_timeout in the URL says how long one may"));
    case SQLITE_NOMEM:
      return automation::out_of_memory(told(""));
    case SQLITE_NOTADB:
      return automation::path_file_access(told("; another file was named"));
    case SQLITE_AUTH:
      return automation::invalid_call(
          told("; readers run one SELECT, changes one INSERT, UPDATE or DELETE, transactions have calls of their own"));
    default:
      return failure(FailureKind::database, told(""));
  }
}

Refusal refusal_of(int code) {
  switch (code) {
    case SQLITE_FULL:
      return Refusal::full;
    case SQLITE_PERM:
    case SQLITE_READONLY:
      return Refusal::permission;
    case SQLITE_BUSY:
      return Refusal::busy;
    case SQLITE_INTERRUPT:
      return Refusal::too_long;
    case SQLITE_CANTOPEN:
    case SQLITE_NOTADB:
      return Refusal::no_session;
    default:
      return Refusal::statement;
  }
}

}  // namespace

RunTimeError last_failure(sqlite3* database, std::string_view statement) {
  const int primary_code = sqlite3_extended_errcode(database) & 0xFF;
  return described(database, primary_code, statement)
      .with_context({"sqlite", std::string(statement), refusal_of(primary_code)});
}

void require_ok(int code, sqlite3* database, std::string_view statement) {
  if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) throw last_failure(database, statement);
}

}  // namespace dorvane::sqlite
