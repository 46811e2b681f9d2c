#pragma once

#include <string_view>

struct sqlite3;

namespace dorvane::sqlite {

/// LIKE without regard to case beyond ASCII: "%" stands for any text, "_" for any one character; nothing escapes.
/// Both are UTF-8.
bool is_like(std::string_view text, std::string_view pattern);

/// Makes `is_like` the engine's LIKE, where a statement gives no escape character.
void install_like(sqlite3* database);

}  // namespace dorvane::sqlite
