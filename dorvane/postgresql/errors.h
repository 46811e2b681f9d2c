#pragma once

#include <string_view>

#include "dorvane/postgresql/handles.h"
#include "dorvane/server_error.h"

namespace dorvane::postgresql {

/// What an SQLSTATE means (PostgreSQL's Appendix A): five characters, the first two its class.
Refusal refusal_of(std::string_view state);

/// The error that a refused statement came back with.
ServerError failure(PGconn* session, const PGresult* result, std::string_view statement);

/// The error of a session that could not be opened.
ServerError connection_failure(PGconn* session);

}  // namespace dorvane::postgresql
