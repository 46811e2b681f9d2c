#include "automation/text/shown_text.h"

#include <gtest/gtest.h>

#include "automation/text/utf8.h"

namespace automation {
namespace {

TEST(ShownText, GivesNoOrders) {
  const struct {
    const char* what;
    std::string_view text, expected;
  } rows[] = {{"nothing", "", ""},
              {"plain", "BA, 12 \\ \"x\" ~", "BA, 12 \\ \"x\" ~"},
              {"letters beyond ASCII", "perché Ω Я 数 😀", "perché Ω Я 数 😀"},
              {"line breaks", "a\r\nb\nc\rd", "a??b?c?d"},
              {"tab", "a\tb", "a?b"},
              {"zero byte", std::string_view("a\0b", 3), "a?b"},
              {"a terminal's sequence", "\033[2Ja\033]0;t\a", "?[2Ja?]0;t?"},
              {"delete", "a\x7F", "a?"},
              {"the same sequence in one C1 character", "a\u009B2Jb", "a?2Jb"},
              {"first and last C1, and what stands behind them", "\u0080\u009F\u00A0", "??\u00A0"},
              {"next line", "a\u0085b", "a?b"},
              {"separators", "a\u2028b\u2029c", "a?b?c"},
              {"direction marks", "\u200E\u200F\u061C", "???"},
              {"direction overrides", "\u202A\u202B\u202C\u202D\u202Efdp", "?????fdp"},
              {"direction isolates", "\u2066\u2067\u2068\u2069", "????"},
              {"their neighbours", "\u200D\u2010\u2027\u202F\u2065\u206A", "\u200D\u2010\u2027\u202F\u2065\u206A"},
              {"a bare C1 byte",
               "a\x9B"
               "2J",
               "a?2J"},
              {"a cut character", "a\xC3", "a?"},
              {"each bad byte", "\xE2\x82[\xFF", "??[?"},
              {"the longer form of a line feed",
               "a\xC0\x8A"
               "b",
               "a??b"},
              {"a surrogate", "\xED\xA0\x80", "???"}};
  for (const auto& row : rows) EXPECT_EQ(shown_text(row.text), row.expected) << row.what;
}

TEST(ShownText, IsCutBehindAWholeCharacter) {
  const struct {
    std::string_view text;
    size_t most;
    std::string_view expected;
  } rows[] = {{"abc", 3, "abc"}, {"abcd", 3, "abc…"},  {"abc", 0, "…"},      {"", 0, ""},
              {"abè", 4, "abè"}, {"abè", 3, "ab…"},    {"a😀b", 4, "a…"},     {"a😀b", 5, "a😀…"},
              {"a😀", 5, "a😀"},   {"\n\nab", 2, "??…"}, {"\xFF\xFF", 2, "??"}};
  for (const auto& row : rows) EXPECT_EQ(shown_text(row.text, row.most), row.expected) << row.text << row.most;
}

TEST(ShownText, AnyBytesBecomeWholeCharactersWithoutOrders) {
  uint32_t state = 1;
  for (int round = 0; round < 20000; ++round) {
    std::string bytes;
    for (int i = 0; i < 12; ++i) {
      state = state * 1664525U + 1013904223U;
      // Half of the bytes can be in a long character.
      bytes += static_cast<char>(state >> 31U ? 0x80U | state >> 24U : state >> 24U);
    }
    const std::string result = shown_text(bytes);
    for (std::string_view rest = result; !rest.empty();) {
      const Utf8Character character = first_character(rest);
      ASSERT_TRUE(character.whole && character.code >= 0x20 && (character.code < 0x7F || character.code > 0x9F));
      rest.remove_prefix(character.size);
    }
    ASSERT_EQ(shown_text(result), result);
  }
}

TEST(QuotedText, NamesAValueInForty) {
  EXPECT_EQ(quoted_text(""), "\"\"");
  EXPECT_EQ(quoted_text("a\nb"), "\"a?b\"");
  EXPECT_EQ(quoted_text(std::string(40, 'x')), '"' + std::string(40, 'x') + '"');
  EXPECT_EQ(quoted_text(std::string(41, 'x')), '"' + std::string(40, 'x') + "…\"");
}

}  // namespace
}  // namespace automation
