#pragma once

#include <string>

#include "dorvane/postgresql/handles.h"

namespace dorvane::postgresql {

/// Runs one reading statement in a transaction that is read only for the server itself and is rolled back behind it,
/// in one round trip: a setting or lock that the statement got hold of goes with it. Inside an open transaction that
/// is a savepoint of it, and a statement that fails takes the transaction with it as any does.
/// The statement's own result, or that of whatever failed; the connection is then to be looked at.
Result read_only_result(PGconn* session, const std::string& statement);

/// Gives a transaction back that a statement took in read_only_result; nothing happens to others.
void return_to_transaction(PGconn* session);

}  // namespace dorvane::postgresql
