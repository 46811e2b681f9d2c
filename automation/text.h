#pragma once  // for hosts

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "automation/export.h"

namespace automation {

/// Without the blanks at both ends. Tabs and line breaks stay.
AUTOMATION_API std::string_view trim(std::string_view text);
inline bool is_blank(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }
inline bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// The pieces between the separators; an empty text has none. The pieces point into `text`.
AUTOMATION_API std::vector<std::string_view> split(std::string_view text, char separator);
AUTOMATION_API std::vector<std::string_view> split(std::string_view text, std::string_view separator);

/// The pieces one after the other, nothing between.
AUTOMATION_API std::string concatenated(std::initializer_list<std::string_view> pieces);

/// Compares ASCII letters without regard to case, all other bytes as they are.
AUTOMATION_API bool equal_ignoring_case(std::string_view left, std::string_view right);
AUTOMATION_API std::string lower_case(std::string_view text);

/// The Western single-byte code page 1252: of update files and of the error log. A byte without a character
/// becomes U+FFFD; a character without a byte becomes "?", and so does a byte that is no UTF-8.
AUTOMATION_API std::string from_code_page_1252(std::string_view bytes);
AUTOMATION_API std::string to_code_page_1252(std::string_view text);

}  // namespace automation
