#pragma once

#include <string>
#include <string_view>

#include "automation/com/system/platform.h"

namespace automation::com {

/// UTF-8 and the system's UTF-16. What is malformed becomes U+FFFD.
std::wstring to_wide(std::string_view text);
std::string from_wide(std::wstring_view text);

/// A new BSTR, which the caller frees. Throws std::bad_alloc.
BSTR to_bstr(std::string_view text);
/// A null BSTR is the empty text.
std::string from_bstr(BSTR text);

/// A BSTR that is freed with its scope.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::string_view text) : text_(to_bstr(text)) {}
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }
  BSTR get() const { return text_; }
  BSTR* put() { return &text_; }

 private:
  BSTR text_ = nullptr;
};

}  // namespace automation::com
