#include "dorvane/mariadb/errors.h"

#include <errmsg.h>
#include <mysqld_error.h>

namespace dorvane::mariadb {

Refusal refusal_of(unsigned code) {
  // Below the server's first number are the client's own: the server was never heard.
  if (code >= CR_MIN_ERROR && code <= CR_MAX_ERROR) return Refusal::connection;
  switch (code) {
    case ER_NO_SUCH_TABLE:
    case ER_BAD_TABLE_ERROR:
    case ER_BAD_FIELD_ERROR:
    case ER_BAD_DB_ERROR:
      return Refusal::missing;
    case ER_DBACCESS_DENIED_ERROR:
    case ER_ACCESS_DENIED_ERROR:
    case ER_TABLEACCESS_DENIED_ERROR:
    case ER_COLUMNACCESS_DENIED_ERROR:
    case ER_SPECIFIC_ACCESS_DENIED_ERROR:
    case ER_OPTION_PREVENTS_STATEMENT:
    case ER_CANT_EXECUTE_IN_READ_ONLY_TRANSACTION:
    case ER_READ_ONLY_MODE:
      return Refusal::permission;
    case ER_LOCK_WAIT_TIMEOUT:
    case ER_LOCK_DEADLOCK:
      return Refusal::busy;
    case ER_STATEMENT_TIMEOUT:
    case ER_QUERY_INTERRUPTED:
      return Refusal::too_long;
    case ER_DISK_FULL:
    case ER_RECORD_FILE_FULL:
      return Refusal::full;
    case ER_SERVER_SHUTDOWN:
    case ER_NORMAL_SHUTDOWN:
    case ER_CONNECTION_KILLED:
    case ER_CON_COUNT_ERROR:
      return Refusal::connection;
    default:
      return Refusal::statement;
  }
}

ServerError last_failure(MYSQL* session, std::string_view statement) {
  return {refusal_of(mysql_errno(session)), "mariadb", mysql_error(session), statement};
}

ServerError connection_failure(MYSQL* session) { return {Refusal::no_session, "mariadb", mysql_error(session), {}}; }

bool took_the_transaction(unsigned code) { return code == ER_LOCK_DEADLOCK || refusal_of(code) == Refusal::connection; }

}  // namespace dorvane::mariadb
