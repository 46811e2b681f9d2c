#pragma once

#include <span>
#include <string>
#include <string_view>

#include "dorvane/schema.h"

// What is MariaDB's own: how a statement must read, and the archive's tables.

namespace dorvane::mariadb {

/// A statement as the engine takes it: names in lower case (its tables and their aliases mind the case on most
/// systems), doubled backslashes inside literals made one, LIKE without regard to case.
std::string translate(std::string_view statement);
/// The same for a reading one, with an order for ties.
std::string translate_reading(std::string_view statement);

/// Raises RunTimeError 5 for comments that the engine executes.
void require_plain(std::string_view statement);

std::span<const Creation> table_creations();
std::span<const Creation> index_creations();
std::string_view column_facts();
std::string_view index_facts();

}  // namespace dorvane::mariadb
