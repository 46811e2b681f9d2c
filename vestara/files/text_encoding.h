#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vestara {

/// The text in UTF-8 when the bytes are UTF-16: after a byte-order mark, or evidently, every other byte of the
/// beginning being zero. Nothing otherwise. What is no character becomes U+FFFD.
std::optional<std::string> from_utf16(std::string_view bytes);

}  // namespace vestara
