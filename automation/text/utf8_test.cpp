#include "automation/text/utf8.h"

#include <gtest/gtest.h>

namespace automation {
namespace {

TEST(Utf8, FirstCharacter) {
  const struct {
    std::string_view text;
    char32_t code;
    size_t size;
    bool whole;
  } rows[] = {{"a", U'a', 1, true},
              {std::string_view("\0a", 2), 0, 1, true},
              {"\x7F", 0x7F, 1, true},
              {"\xC2\x80", 0x80, 2, true},
              {"\xDF\xBFx", 0x7FF, 2, true},
              {"\xE0\xA0\x80", 0x800, 3, true},
              {"\xEF\xBF\xBF", 0xFFFF, 3, true},
              {"\xF0\x90\x80\x80", 0x10000, 4, true},
              {"\xF4\x8F\xBF\xBFx", 0x10FFFF, 4, true},
              {"\x80", 0x80, 1, false},
              {"\xBFx", 0xBF, 1, false},
              {"\xC0\x80", 0xC0, 1, false},           // the longer form of U+0000
              {"\xC1\xBF", 0xC1, 1, false},           // the longer form of U+007F
              {"\xE0\x9F\xBF", 0xE0, 1, false},       // the longer form of U+07FF
              {"\xF0\x8F\xBF\xBF", 0xF0, 1, false},   // the longer form of U+FFFF
              {"\xED\x9F\xBF", 0xD7FF, 3, true},      // before the surrogates
              {"\xED\xA0\x80", 0xED, 1, false},       // the first surrogate
              {"\xED\xBF\xBF", 0xED, 1, false},       // the last one
              {"\xEE\x80\x80", 0xE000, 3, true},      // behind them
              {"\xF4\x90\x80\x80", 0xF4, 1, false},   // beyond the last code
              {"\xF5\x80\x80\x80", 0xF5, 1, false},   // no lead
              {"\xFF", 0xFF, 1, false},               // nor this
              {"\xC3", 0xC3, 1, false},               // cut off
              {"\xE2\x82", 0xE2, 1, false},           // cut off
              {"\xF0\x9F\x98", 0xF0, 1, false},       // cut off
              {"\xC3(", 0xC3, 1, false},              // no continuation
              {"\xE2\x82(", 0xE2, 1, false},          // none in the third place
              {"\xF0\x9F\x98\xC3", 0xF0, 1, false}};  // none in the fourth
  for (const auto& row : rows) {
    const Utf8Character character = first_character(row.text);
    EXPECT_EQ(character.code, row.code) << row.text;
    EXPECT_EQ(character.size, row.size) << row.text;
    EXPECT_EQ(character.whole, row.whole) << row.text;
  }
}

TEST(Utf8, EveryCharacterIsReadAsItWasWritten) {
  for (char32_t code = 0; code <= 0x10FFFF; ++code) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    std::string text;
    append_utf8(text, code);
    const Utf8Character character = first_character(text);
    ASSERT_TRUE(character.whole && character.code == code && character.size == text.size()) << std::hex << +code;
  }
}

}  // namespace
}  // namespace automation
