#pragma once  // for hosts

#include <string>
#include <string_view>

#include "automation/text/shown_text.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// A foreign text for a message.
inline std::string shown(std::string_view text) { return automation::quoted_text(text); }

/// "1 row", "2 rows".
VESTARA_API std::string counted(size_t count, std::string_view noun);

/// "YYYY-MM-DD" of a day counted from 1899-12-30.
VESTARA_API std::string shown_day(int32_t day);

/// How many items of a long list a message names.
inline constexpr size_t most_named = 20;

}  // namespace vestara
