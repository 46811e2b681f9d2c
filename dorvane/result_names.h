#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dorvane/tokens.h"
#include "records/static_recordset.h"

namespace dorvane {

/// The names of a statement's result columns in one spelling on every engine, from the engine's own: a column of the
/// archive's tables as the tables spell it, an alias as the statement does, an expression without a name as its text.
/// Servers fold names or call every count "count".
/// The statement is the one that the host wrote.
std::vector<std::string> result_names(std::string_view statement, const Syntax& syntax,
                                      std::vector<std::string> of_engine);
/// The same for the headers of a result.
void spell_names(std::string_view statement, const Syntax& syntax, std::vector<records::ColumnHeader>& headers);

}  // namespace dorvane
