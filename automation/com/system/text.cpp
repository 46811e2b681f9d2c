#include "automation/com/system/text.h"

#include <algorithm>
#include <new>

namespace automation::com {
namespace {

bool is_ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

int length_of(std::string_view text) { return static_cast<int>(text.size()); }

}  // namespace

std::wstring to_wide(std::string_view text) {
  if (is_ascii(text)) return {text.begin(), text.end()};
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), length_of(text), nullptr, 0);
  std::wstring wide(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length_of(text), wide.data(), length);
  return wide;
}

std::string from_wide(std::wstring_view text) {
  if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; })) {
    std::string narrow(text.size(), '\0');
    std::transform(text.begin(), text.end(), narrow.begin(), [](wchar_t c) { return static_cast<char>(c); });
    return narrow;
  }
  const int wide = static_cast<int>(text.size());
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, narrow.data(), length, nullptr, nullptr);
  return narrow;
}

BSTR to_bstr(std::string_view text) {
  BSTR result = nullptr;
  if (is_ascii(text)) {
    result = SysAllocStringLen(nullptr, static_cast<UINT>(text.size()));
    if (result) std::copy(text.begin(), text.end(), result);
  } else {
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), length_of(text), nullptr, 0);
    result = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (result) MultiByteToWideChar(CP_UTF8, 0, text.data(), length_of(text), result, length);
  }
  if (!result) throw std::bad_alloc();
  return result;
}

std::string from_bstr(BSTR text) { return text ? from_wide({text, SysStringLen(text)}) : std::string(); }

}  // namespace automation::com
