#pragma once

#include <span>
#include <string>
#include <string_view>

#include "dorvane/schema.h"

// What is PostgreSQL's own: how a statement must read, and the archive's tables.

namespace dorvane::postgresql {

/// A statement as the engine takes it: doubled backslashes inside literals made one, LIKE without regard to case and
/// without an escape character.
std::string translate(std::string_view statement);
/// The same for a reading one, with an order for ties, and Null the smallest value of every order.
std::string translate_reading(std::string_view statement);

/// Raises RunTimeError 5 for texts whose end the engine sees elsewhere than others do: $$…$$, E'…', U&'…'.
void require_plain(std::string_view statement);

std::span<const Creation> table_creations();
std::span<const Creation> index_creations();
std::string_view column_facts();
std::string_view index_facts();

}  // namespace dorvane::postgresql
