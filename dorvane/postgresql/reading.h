#pragma once

#include <string>

#include "dorvane/postgresql/handles.h"

namespace dorvane::postgresql {

/// Runs one reading statement in a transaction that is read only for the server itself and is rolled back after it, in
/// one round trip. The rollback takes back any setting or lock that the statement got hold of. Inside an open
/// transaction a savepoint does the same, and a statement that fails loses the transaction as any other does. Returns
/// the statement's own result, or that of whatever failed. The caller then looks at the connection's state.
Result read_only_result(PGconn* session, const std::string& statement);

/// Makes an open transaction usable again that a statement failed in by read_only_result; changes nothing otherwise.
void return_to_transaction(PGconn* session);

}  // namespace dorvane::postgresql
