#pragma once

#include <string_view>

#include "dorvane/mariadb/handles.h"
#include "dorvane/server_error.h"

namespace dorvane::mariadb {

/// What an error number of the server, or of its client library, means.
Refusal refusal_of(unsigned code);

/// The error that the session reported last.
ServerError last_failure(MYSQL* session, std::string_view statement = {});

/// The error of a session that could not be opened.
ServerError connection_failure(MYSQL* session);

/// True when the server rolled the whole transaction back, not the statement alone.
bool took_the_transaction(unsigned code);

}  // namespace dorvane::mariadb
