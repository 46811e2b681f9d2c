#include "vestara/files/text_encoding.h"

#include <algorithm>
#include <cstdint>

namespace vestara {
namespace {

enum class ByteOrder { low_first, high_first };

struct Utf16 {
  ByteOrder order;
  std::string_view units;  ///< without the mark
};

/// True when every second byte of the beginning, from `first` on, is zero and no other is.
bool alternates(std::string_view bytes, size_t first) {
  constexpr size_t enough = 64;
  if (bytes.size() < 8) return false;
  for (size_t i = 0; i < std::min(bytes.size(), enough); ++i)
    if ((bytes[i] == '\0') != (i % 2 == first)) return false;
  return true;
}

std::optional<Utf16> utf16_in(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return Utf16{ByteOrder::low_first, bytes.substr(2)};
  if (bytes.starts_with("\xFE\xFF")) return Utf16{ByteOrder::high_first, bytes.substr(2)};
  if (alternates(bytes, 1)) return Utf16{ByteOrder::low_first, bytes};
  if (alternates(bytes, 0)) return Utf16{ByteOrder::high_first, bytes};
  return std::nullopt;
}

void append_utf8(std::string& text, uint32_t code) {
  const auto trail = [&](uint32_t shift) { text += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | code >> 6);
    trail(0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | code >> 12);
    trail(6);
    trail(0);
  } else {
    text += static_cast<char>(0xF0 | code >> 18);
    trail(12);
    trail(6);
    trail(0);
  }
}

bool is_high(uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool is_low(uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::optional<std::string> from_utf16(std::string_view bytes) {
  const auto source = utf16_in(bytes);
  if (!source) return std::nullopt;
  const std::string_view units = source->units;
  const size_t high = source->order == ByteOrder::high_first ? 0 : 1;
  const auto unit_at = [&](size_t place) {
    return static_cast<uint32_t>(static_cast<unsigned char>(units[place + high]) << 8 |
                                 static_cast<unsigned char>(units[place + 1 - high]));
  };
  constexpr uint32_t no_character = 0xFFFD;
  std::string text;
  text.reserve(units.size() / 2);
  for (size_t i = 0; i + 1 < units.size(); i += 2) {
    const uint32_t unit = unit_at(i);
    const bool is_pair = is_high(unit) && i + 3 < units.size() && is_low(unit_at(i + 2));
    if (is_pair) {
      append_utf8(text, 0x10000 + ((unit - 0xD800) << 10) + (unit_at(i + 2) - 0xDC00));
      i += 2;
    } else {
      append_utf8(text, is_high(unit) || is_low(unit) ? no_character : unit);
    }
  }
  if (units.size() % 2 != 0) append_utf8(text, no_character);
  return text;
}

}  // namespace vestara
