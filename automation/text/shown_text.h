#pragma once  // for hosts

#include <string>
#include <string_view>

#include "automation/export.h"

namespace automation {

/// A foreign text (of a file, an argument, a database) for one line of a message, a log or a terminal: UTF-8 that
/// neither breaks the line nor gives orders. These become "?": control characters, line and paragraph separators,
/// characters that turn the direction of the text, and bytes that are no UTF-8. The result has at most `most` bytes,
/// whole characters; what is left out is marked by "…" after them.
AUTOMATION_API std::string shown_text(std::string_view text, size_t most = std::string_view::npos);

/// The same between double quotes, cut to 40 bytes: how a message names a value that it refuses.
AUTOMATION_API std::string quoted_text(std::string_view text);

}  // namespace automation
