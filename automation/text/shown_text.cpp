#include "automation/text/shown_text.h"

#include <algorithm>
#include <array>

#include "automation/text/utf8.h"

namespace automation {
namespace {

struct Range {
  char32_t first, last;
};

/// Unicode's controls (Cc), its line and paragraph separators (Zl, Zp) and its Bidi_Control characters.
constexpr std::array<Range, 7> orders{{{0x0000, 0x001F},
                                       {0x007F, 0x009F},
                                       {0x061C, 0x061C},
                                       {0x200E, 0x200F},
                                       {0x2028, 0x2029},
                                       {0x202A, 0x202E},
                                       {0x2066, 0x2069}}};

bool is_shown(const Utf8Character& character) {
  return character.whole && std::none_of(orders.begin(), orders.end(), [&](const Range& range) {
           return character.code >= range.first && character.code <= range.last;
         });
}

}  // namespace

std::string shown_text(std::string_view text, size_t most) {
  std::string result;
  result.reserve(std::min(text.size(), most));
  while (!text.empty()) {
    const Utf8Character character = first_character(text);
    const std::string_view piece = is_shown(character) ? text.substr(0, character.size) : "?";
    if (piece.size() > most - result.size()) return result += "…";
    result += piece;
    text.remove_prefix(character.size);
  }
  return result;
}

std::string quoted_text(std::string_view text) {
  constexpr size_t longest = 40;
  return '"' + shown_text(text, longest) + '"';
}

}  // namespace automation
