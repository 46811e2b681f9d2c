#include "automation/case_folding.h"

#include <gtest/gtest.h>

namespace automation {
namespace {

TEST(CaseFolding, SmallLetters) {
  const struct {
    char32_t capital, small;
  } rows[] = {{U'A', U'a'},     {U'Z', U'z'},     {U'@', U'@'},     {U'[', U'['},     {U'a', U'a'},
              {0x00C0, 0x00E0}, {0x00D6, 0x00F6}, {0x00D7, 0x00D7}, {0x00DE, 0x00FE}, {0x00DF, 0x00DF},
              {0x0100, 0x0101}, {0x0101, 0x0101}, {0x012E, 0x012F}, {0x0130, 0x0130}, {0x0139, 0x013A},
              {0x013A, 0x013A}, {0x0178, 0x00FF}, {0x0179, 0x017A}, {0x017D, 0x017E}, {0x01CD, 0x01CE},
              {0x0218, 0x0219}, {0x0386, 0x03AC}, {0x0388, 0x03AD}, {0x038C, 0x03CC}, {0x038F, 0x03CE},
              {0x0391, 0x03B1}, {0x03A2, 0x03A2}, {0x03A9, 0x03C9}, {0x0400, 0x0450}, {0x0410, 0x0430},
              {0x042F, 0x044F}, {0x0430, 0x0430}, {0x0490, 0x0491}, {0x04C0, 0x04CF}, {0x0531, 0x0561},
              {0x1E00, 0x1E01}, {0x1E95, 0x1E95}, {0x1E9E, 0x00DF}, {0x1EFE, 0x1EFF}, {0x1F600, 0x1F600}};
  for (const auto& row : rows) EXPECT_EQ(small_letter(row.capital), row.small) << std::hex << +row.capital;
}

TEST(CaseFolding, Texts) {
  const struct {
    std::string_view left, right;
    bool equal;
  } rows[] = {{"", "", true},           {"BA", "ba", true},      {"BA", "b", false},     {"B", "ba", false},
              {"À", "à", true},         {"À", "a", false},       {"Ÿ", "ÿ", true},       {"ŁÓDŹ", "łódź", true},
              {"ΆΘΉΝΑ", "άθήνα", true}, {"ΟΔΟΣ", "οδος", true},  {"οδοσ", "οδος", true}, {"МОСКВА", "москва", true},
              {"ЇҐ", "їґ", true},       {"ẞ", "ß", true},        {"\u00B5", "Μ", true},  {"[", "{", false},
              {"\xC0", "\xC0", true},   {"\xC0", "\xE0", false}, {"\xC0", "À", false},   {"\xE0", "à", false},
              {"数", "数", true}};
  for (const auto& row : rows) {
    EXPECT_EQ(equal_folded(row.left, row.right), row.equal) << row.left << ' ' << row.right;
    EXPECT_EQ(equal_folded(row.right, row.left), row.equal) << row.left << ' ' << row.right;
  }
}

}  // namespace
}  // namespace automation
