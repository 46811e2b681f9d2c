#pragma once  // for hosts

#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"

// A text of combinations: the numbers of each with "," between them, CR LF between one and the next.

namespace vestara {

inline constexpr std::string_view line_break = "\r\n";

/// The single combinations of such a text, in order, pointing into it. An empty text has none.
VESTARA_API std::vector<std::string_view> combination_lines(std::string_view combinations);

}  // namespace vestara
