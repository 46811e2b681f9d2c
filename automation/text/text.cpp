#include "automation/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "automation/text/utf8.h"

namespace automation {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Code points of the bytes 0x80 to 0x9F; 0 where the page has no character.
// Source: the Unicode Consortium's mapping table for code page 1252.
constexpr std::array<uint16_t, 32> high_controls{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                                 0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char byte_of(char32_t point) {
  if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) return static_cast<char>(point);
  const auto* found = std::find(high_controls.begin(), high_controls.end(), point);
  if (point == 0 || found == high_controls.end()) return '?';
  return static_cast<char>(0x80 + (found - high_controls.begin()));
}

}  // namespace

std::string_view trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  if (text.empty()) return pieces;
  for (;;) {
    const auto end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + separator.size());
  }
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  return split(text, std::string_view(&separator, 1));
}

std::string concatenated(std::initializer_list<std::string_view> pieces) {
  size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  std::string text;
  text.reserve(size);
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

bool equal_ignoring_case(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

std::string lower_case(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

std::string from_code_page_1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80 || byte >= 0xA0) {
      append_utf8(text, byte);
    } else {
      const uint32_t point = high_controls[byte - 0x80U];
      append_utf8(text, point != 0 ? point : 0xFFFD);
    }
  }
  return text;
}

std::string to_code_page_1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const Utf8Character character = first_character(text);
    bytes += character.whole ? byte_of(character.code) : '?';
    text.remove_prefix(character.size);
  }
  return bytes;
}

}  // namespace automation
