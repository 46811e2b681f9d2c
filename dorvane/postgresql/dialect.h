#pragma once

#include <string>
#include <string_view>

#include "dorvane/dialect.h"
#include "dorvane/tokens.h"

// What is PostgreSQL's own: how a statement must read, and the archive's tables.

namespace dorvane::postgresql {

inline constexpr Syntax syntax{
    .nested_comments = true, .return_ends_comment = true, .prefixed_texts = true, .colon_and_at_operators = true};

/// A statement as the engine takes it: doubled backslashes inside literals made one, LIKE without regard to case and
/// without an escape character.
std::string translate(std::string_view statement);
/// The same for a reading one, and Null the smallest value of every order.
std::string translate_reading(std::string_view statement);

/// All of it, with the tables.
const Dialect& dialect();

}  // namespace dorvane::postgresql
