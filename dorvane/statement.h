#pragma once

#include <string>
#include <string_view>

#include "automation/error.h"
#include "dorvane/tokens.h"

namespace dorvane {

/// The statement with every pair of backslashes inside a literal made one; byte for byte itself when there is none.
std::string undouble_backslashes(std::string_view statement, const Syntax& syntax);

/// True for CREATE, ALTER and DROP, which some engines keep at once whatever the transaction.
bool changes_tables(std::string_view statement, const Syntax& syntax);

/// The statement with every LIKE, where it is no name, as `like` (which may be a word of the engine's own), and
/// `behind` put after a pattern that is one literal without an ESCAPE of its own.
std::string rewrite_like(std::string_view statement, const Syntax& syntax, std::string_view like,
                         std::string_view behind);

/// So much of a statement is shown in a message.
inline constexpr size_t shown_statement = 160;
/// "; in: SELECT …": the beginning of a statement, as it stands after a reason; "" for an empty one.
std::string in_statement(std::string_view statement);

/// Error 5 of an engine that cannot take a statement: "sqlite: the statement is empty". `why` reads as in "is empty".
automation::RunTimeError refused_statement(std::string_view engine, std::string_view why, std::string_view statement);

/// The statement that asks for the largest value of a column. Raises RunTimeError 5 when the two are not plain names.
std::string largest_value(std::string_view table, std::string_view column);

/// True for "DELETE FROM storico" without a condition, in any case and spacing.
bool empties_the_archive(std::string_view statement, const Syntax& syntax);

}  // namespace dorvane
