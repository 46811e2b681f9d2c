#pragma once

#include <string>
#include <string_view>

#include "dorvane/dialect.h"

// What is MariaDB's own: how a statement must read, and the archive's tables.

namespace dorvane::mariadb {

/// A statement as the engine takes it: names in lower case (its tables and their aliases mind the case on most
/// systems), doubled backslashes inside literals made one, LIKE without regard to case.
std::string translate(std::string_view statement);
/// The same for a reading one, with an order for ties.
std::string translate_reading(std::string_view statement);

/// Raises RunTimeError 5 for comments that the engine executes.
void require_plain(std::string_view statement);

/// All of it, with the tables.
const Dialect& dialect();

}  // namespace dorvane::mariadb
