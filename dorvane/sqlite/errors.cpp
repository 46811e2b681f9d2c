#include "dorvane/sqlite/errors.h"

#include <sqlite3.h>

#include <cerrno>
#include <string>

namespace dorvane::sqlite {
namespace {

constexpr size_t shown_statement = 160;

struct Advice {
  int32_t number;
  std::string_view text;
};

/// A file that cannot be opened: what the system says about it, where that is known.
Advice advice_for_opening(int system_error) {
  if (system_error == EMFILE || system_error == ENFILE)
    return {67, "; too many files are open, in this process or on this machine (ulimit -n)"};
  return {76, "; is the folder there, and may this user use it?"};
}

/// The platform's number for a primary result code, and a hint.
Advice advice_for(int code, int system_error) {
  switch (code) {
    case SQLITE_FULL:
      return {61, "; free some space, nothing was changed"};
    case SQLITE_PERM:
    case SQLITE_READONLY:
      return {70, "; the archive can be read only"};
    case SQLITE_BUSY:
      return {70, "; another program is changing the archive, try again when it is done"};
    case SQLITE_CANTOPEN:
      return advice_for_opening(system_error);
    case SQLITE_INTERRUPT:
      return {automation::unspecified_failure,
              "; it took too long, statement_timeout in the URL says how long one may"};
    case SQLITE_NOMEM:
      return {7, ""};
    case SQLITE_NOTADB:
      return {75, "; another file was named"};
    case SQLITE_AUTH:
      return {5,
              "; readers run one SELECT, changes one INSERT, UPDATE or DELETE, transactions have calls of their own"};
    default:
      return {automation::unspecified_failure, ""};
  }
}

}  // namespace

automation::RunTimeError last_failure(sqlite3* database, std::string_view statement) {
  const Advice advice = advice_for(sqlite3_extended_errcode(database) & 0xFF, sqlite3_system_errno(database));
  std::string text = "sqlite: " + std::string(sqlite3_errmsg(database)) + std::string(advice.text);
  if (!statement.empty()) {
    text.append("; in: ").append(statement.substr(0, shown_statement));
    if (statement.size() > shown_statement) text += "…";
  }
  return {advice.number, text};
}

void require_ok(int code, sqlite3* database, std::string_view statement) {
  if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) throw last_failure(database, statement);
}

}  // namespace dorvane::sqlite
