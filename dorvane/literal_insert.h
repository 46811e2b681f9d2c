#pragma once

#include <string_view>
#include <vector>

#include "dorvane/tokens.h"

namespace dorvane {

/// True for "INSERT INTO table(columns) VALUES(literals),…" (REPLACE and INSERT OR … alike): numbers with their sign,
/// texts, NULL, no comment, nothing after the last tuple.
bool inserts_literals(std::string_view statement, const Syntax& syntax);

/// Raises RunTimeError 5 when a statement of another form inserts into a table of the archive. So what an update file
/// has between two marks is stored as a value or not at all.
void require_no_computed_rows(const std::vector<Token>& tokens);

}  // namespace dorvane
