#pragma once

#include <string>
#include <string_view>

#include "dorvane/statement_guard.h"
#include "dorvane/tokens.h"
#include "records/column_store.h"
#include "vestara/foundation/schema.h"

// What is SQLite's own: how a statement must read, what a column's declared type means, and the archive's tables.

namespace dorvane::sqlite {

inline constexpr Syntax syntax{.backtick_names = true, .bracket_names = true};

/// Empty: the engine itself decides what a statement may read and call, when it prepares it (session.h).
extern const Prohibitions prohibitions;

/// A statement as the engine takes it: doubled backslashes inside literals made one. Nothing else is touched.
std::string translate(std::string_view statement);

/// True for a function that does no more than compute, among those that the engine does not call harmless.
bool only_computes(std::string_view function);

/// Dates are text to SQLite. A column is read as dates when its declared type says so or is unknown, or when it
/// bears the name of one of the archive's date columns.
records::TextReading reading_of(std::string_view column_name, const char* declared_type);

/// Creates a table where it is missing.
std::string table_statement(const vestara::ArchiveTable& table);
/// Creates an index where it is missing.
std::string index_statement(const vestara::ArchiveIndex& index);

/// An index that stays when the draws are all deleted. Where it is there, the draws' own indexes belong to the file.
const vestara::ArchiveIndex& lasting_index();

}  // namespace dorvane::sqlite
