#pragma once

#include <string>
#include <string_view>

#include "dorvane/dialect.h"
#include "dorvane/tokens.h"

// What is MariaDB's own: how a statement must read, and the archive's tables.

namespace dorvane::mariadb {

/// Under the modes that a connection of ours sets.
inline constexpr Syntax syntax{
    .backtick_names = true, .blank_after_dashes = true, .hash_comments = true, .executed_comments = true};

/// A statement as the engine takes it: names in lower case (its tables and their aliases mind the case on most
/// systems), doubled backslashes inside literals made one, LIKE without regard to case.
std::string translate(std::string_view statement);

/// All of it, with the tables.
const Dialect& dialect();

}  // namespace dorvane::mariadb
