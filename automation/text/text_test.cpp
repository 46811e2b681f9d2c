#include "automation/text.h"

#include <gtest/gtest.h>

namespace automation {
namespace {

TEST(Trim, TakesBlanksAndNothingElse) {
  const struct {
    const char *text, *expected;
    bool blank;
  } rows[] = {{"", "", true},        {" ", "", true},           {"   ", "", true},
              {"a", "a", false},     {"  a b  ", "a b", false}, {"\ta ", "\ta", false},
              {" \t ", "\t", false}, {" a\r\n", "a\r\n", false}};
  for (const auto& row : rows) {
    EXPECT_EQ(trim(row.text), row.expected) << '"' << row.text << '"';
    EXPECT_EQ(is_blank(row.text), row.blank) << '"' << row.text << '"';
  }
}

TEST(Split, GivesThePiecesBetweenTheSeparators) {
  using Pieces = std::vector<std::string_view>;
  const struct {
    const char* text;
    Pieces expected;
  } rows[] = {{"", {}},
              {"a", {"a"}},
              {"a,b", {"a", "b"}},
              {"a,", {"a", ""}},
              {",a", {"", "a"}},
              {",", {"", ""}},
              {",,", {"", "", ""}},
              {"a,,b", {"a", "", "b"}},
              {" ", {" "}},
              {"a, b ", {"a", " b "}},
              {"a#b,c", {"a#b", "c"}}};
  for (const auto& row : rows) EXPECT_EQ(split(row.text, ','), row.expected) << row.text;
}

TEST(Split, SeparatorMayBeAText) {
  using Pieces = std::vector<std::string_view>;
  const struct {
    const char *text, *separator;
    Pieces expected;
  } rows[] = {{"", "\r\n", {}},
              {"a", "\r\n", {"a"}},
              {"a\r\nb", "\r\n", {"a", "b"}},
              {"a\r\n", "\r\n", {"a", ""}},
              {"\r\n", "\r\n", {"", ""}},
              {"\r\n\r\na", "\r\n", {"", "", "a"}},
              {"a\nb\rc\n\rd", "\r\n", {"a\nb\rc\n\rd"}},
              {"a\r\r\nb", "\r\n", {"a\r", "b"}},
              {"aaa", "aa", {"", "a"}},
              {"a", "abc", {"a"}},
              {"a,b", ",", {"a", "b"}}};
  for (const auto& row : rows) EXPECT_EQ(split(row.text, row.separator), row.expected) << row.text;
}

TEST(Concatenated, NothingBetweenThePieces) {
  EXPECT_EQ(concatenated({}), "");
  EXPECT_EQ(concatenated({""}), "");
  EXPECT_EQ(concatenated({"a", "", " ", std::string("b"), std::string_view("cd", 1)}), "a bc");
}

TEST(Case, IsIgnoredForAsciiLettersOnly) {
  const struct {
    const char *left, *right;
    bool equal;
  } rows[] = {{"", "", true},    {"BA", "ba", true}, {"dtEstr", "DTESTR", true}, {"a", "b", false},
              {"a", "", false},  {"a", "aa", false}, {"à", "à", true},           {"à", "À", false},
              {"[", "{", false}, {"@", "`", false},  {"AZ", "az", true}};
  for (const auto& row : rows) EXPECT_EQ(equal_ignoring_case(row.left, row.right), row.equal) << row.left << row.right;
  EXPECT_EQ(lower_case("RuoteAlias ÀAZ[@"), "ruotealias Àaz[@");
}

TEST(CodePage1252, BytesToText) {
  const struct {
    const char *bytes, *text;
  } rows[] = {
      {"", ""},           {"plain\r\n~", "plain\r\n~"}, {"\xE0", "à"},      {"\x80", "€"},      {"\x9F", "Ÿ"},
      {"\x92", "\u2019"}, {"\xA0", "\u00A0"},           {"\xFF", "ÿ"},      {"\x81", "\uFFFD"}, {"\x8D", "\uFFFD"},
      {"\x8F", "\uFFFD"}, {"\x90", "\uFFFD"},           {"\x9D", "\uFFFD"}, {"a\xE8z", "aèz"}};
  for (const auto& row : rows) EXPECT_EQ(from_code_page_1252(row.bytes), row.text);
}

TEST(CodePage1252, TextToBytes) {
  const struct {
    const char *text, *bytes;
  } rows[] = {
      {"", ""},
      {"plain\r\n~", "plain\r\n~"},
      {"perché €", "perch\xE9 \x80"},
      {"Ω", "?"},
      {"\U0001F600", "?"},
      {"\uFFFD", "?"},
      {"a\xFFz", "a?z"},     // never a byte of UTF-8
      {"\xC3", "?"},         // cut off
      {"\xE2\x82z", "??z"},  // cut off in the middle
      {"\xC0\x80", "??"},    // longer than need be
  };
  for (const auto& row : rows) EXPECT_EQ(to_code_page_1252(row.text), row.bytes) << row.text;
}

TEST(CodePage1252, EveryByteWithACharacterThereAndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    if (byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D) continue;
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(to_code_page_1252(from_code_page_1252(bytes)), bytes) << byte;
  }
}

}  // namespace
}  // namespace automation
