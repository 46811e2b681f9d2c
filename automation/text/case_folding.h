#pragma once

#include <string_view>

#include "automation/export.h"

namespace automation {

/// The small letter of a capital, and every other character as it is: Unicode's simple mapping for the Latin, Greek,
/// Cyrillic and Armenian letters.
AUTOMATION_API char32_t small_letter(char32_t character);

/// Compares two texts in UTF-8 without regard to case, as Unicode folds these letters one by one. Bytes that are no
/// UTF-8 are equal to themselves only.
AUTOMATION_API bool equal_folded(std::string_view left, std::string_view right);

}  // namespace automation
