#include "automation/text/case_folding.h"

#include <algorithm>
#include <array>

#include "automation/text/utf8.h"

namespace automation {
namespace {

/// Capitals in a row, and how far behind them their small letters are. In an alternating block every second one is a
/// capital, its small letter next to it.
struct Capitals {
  char32_t first = 0;
  char32_t last = 0;
  int32_t distance = 0;
  bool alternating = false;
};

// Lower-case mappings of the Unicode Character Database, in the order of their codes.
constexpr std::array<Capitals, 30> capitals{
    {{0x0041, 0x005A, 32},      {0x00C0, 0x00D6, 32},      {0x00D8, 0x00DE, 32},      {0x0100, 0x012E, 1, true},
     {0x0132, 0x0136, 1, true}, {0x0139, 0x0147, 1, true}, {0x014A, 0x0176, 1, true}, {0x0178, 0x0178, -121},
     {0x0179, 0x017D, 1, true}, {0x01CD, 0x01DB, 1, true}, {0x01DE, 0x01EE, 1, true}, {0x01F8, 0x021E, 1, true},
     {0x0222, 0x0232, 1, true}, {0x0386, 0x0386, 38},      {0x0388, 0x038A, 37},      {0x038C, 0x038C, 64},
     {0x038E, 0x038F, 63},      {0x0391, 0x03A1, 32},      {0x03A3, 0x03AB, 32},      {0x0400, 0x040F, 80},
     {0x0410, 0x042F, 32},      {0x0460, 0x0480, 1, true}, {0x048A, 0x04BE, 1, true}, {0x04C0, 0x04C0, 15},
     {0x04C1, 0x04CD, 1, true}, {0x04D0, 0x052E, 1, true}, {0x0531, 0x0556, 48},      {0x1E00, 0x1E94, 1, true},
     {0x1E9E, 0x1E9E, -7615},   {0x1EA0, 0x1EFE, 1, true}}};

/// What has two small letters, or none of its own, counts as one.
char32_t folded(char32_t character) {
  switch (character) {
    case U'\u00B5':  // the micro sign is a Greek mu
      return U'\u03BC';
    case U'\u017F':  // the long s
      return U's';
    case U'\u03C2':  // the sigma at the end of a word
      return U'\u03C3';
    default:
      return small_letter(character);
  }
}

}  // namespace

char32_t small_letter(char32_t character) {
  const auto* const block = std::lower_bound(capitals.begin(), capitals.end(), character,
                                             [](const Capitals& row, char32_t code) { return row.last < code; });
  if (block == capitals.end() || character < block->first) return character;
  if (block->alternating && (character - block->first) % 2 != 0) return character;
  return static_cast<char32_t>(static_cast<int32_t>(character) + block->distance);
}

bool equal_folded(std::string_view left, std::string_view right) {
  while (!left.empty() && !right.empty()) {
    const Utf8Character a = first_character(left);
    const Utf8Character b = first_character(right);
    const bool equal = a.whole && b.whole ? folded(a.code) == folded(b.code) : a.whole == b.whole && a.code == b.code;
    if (!equal) return false;
    left.remove_prefix(a.size);
    right.remove_prefix(b.size);
  }
  return left.empty() && right.empty();
}

}  // namespace automation
