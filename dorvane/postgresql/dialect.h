#pragma once

#include <string>
#include <string_view>

#include "dorvane/dialect.h"

// What is PostgreSQL's own: how a statement must read, and the archive's tables.

namespace dorvane::postgresql {

/// A statement as the engine takes it: doubled backslashes inside literals made one, LIKE without regard to case and
/// without an escape character.
std::string translate(std::string_view statement);
/// The same for a reading one, with an order for ties, and Null the smallest value of every order.
std::string translate_reading(std::string_view statement);

/// Raises RunTimeError 5 for texts whose end the engine sees elsewhere than others do: $$…$$, E'…', U&'…'.
void require_plain(std::string_view statement);

/// All of it, with the tables.
const Dialect& dialect();

}  // namespace dorvane::postgresql
