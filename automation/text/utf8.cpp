#include "automation/text/utf8.h"

#include <array>

namespace automation {
namespace {

struct Form {
  unsigned char first_lead, last_lead;
  uint8_t size;
  char32_t smallest;  ///< a smaller code has a shorter form
};

constexpr std::array<Form, 3> long_forms{{{0xC2, 0xDF, 2, 0x80}, {0xE0, 0xEF, 3, 0x800}, {0xF0, 0xF4, 4, 0x10000}}};

bool is_character(char32_t code) { return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF); }

char continuation(char32_t code, unsigned shift) { return static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); }

}  // namespace

Utf8Character first_character(std::string_view text) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  const Utf8Character lone{lead, 1, lead < 0x80};
  for (const Form& form : long_forms) {
    if (lead < form.first_lead || lead > form.last_lead) continue;
    if (text.size() < form.size) return lone;
    char32_t code = lead & (0x7FU >> form.size);
    for (size_t i = 1; i < form.size; ++i) {
      if ((byte(i) & 0xC0U) != 0x80) return lone;
      code = code << 6U | (byte(i) & 0x3FU);
    }
    return code >= form.smallest && is_character(code) ? Utf8Character{code, form.size, true} : lone;
  }
  return lone;
}

void append_utf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
    return;
  }
  if (code < 0x800) {
    out += static_cast<char>(0xC0U | code >> 6U);
  } else {
    if (code < 0x10000) {
      out += static_cast<char>(0xE0U | code >> 12U);
    } else {
      out += static_cast<char>(0xF0U | code >> 18U);
      out += continuation(code, 12);
    }
    out += continuation(code, 6);
  }
  out += continuation(code, 0);
}

}  // namespace automation
