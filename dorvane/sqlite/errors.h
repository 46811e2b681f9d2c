#pragma once

#include <string_view>

#include "automation/error.h"

struct sqlite3;

namespace dorvane::sqlite {

/// The error that the engine reported last on this connection, with what to do about it where that is known, and
/// the beginning of the statement.
automation::RunTimeError last_failure(sqlite3* database, std::string_view statement = {});

/// Raises `last_failure` unless `code` says that all is well.
void require_ok(int code, sqlite3* database, std::string_view statement = {});

}  // namespace dorvane::sqlite
