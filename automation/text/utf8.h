#pragma once  // for hosts

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/export.h"

namespace automation {

/// What a text begins with: one character, or one byte that begins none.
struct Utf8Character {
  char32_t code;  ///< the byte itself when it begins no character
  size_t size;    ///< in bytes, 1 to 4
  bool whole;     ///< false for a byte that begins no character, or one that is cut off or not allowed
};

/// The character at the front of a text that is not empty. Surrogates, codes beyond U+10FFFF and forms longer
/// than a character needs are none.
AUTOMATION_API Utf8Character first_character(std::string_view text);

/// Appends a character's bytes. `code` is at most U+10FFFF.
AUTOMATION_API void append_utf8(std::string& out, char32_t code);

}  // namespace automation
