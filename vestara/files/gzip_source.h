#pragma once

#include <string>
#include <string_view>

#include "vestara/foundation/export.h"

namespace vestara {

/// True for the bytes of a gzip file.
VESTARA_API bool is_gzip(std::string_view bytes);

/// What a gzip file holds, all its members. Failure (file) when it is damaged, cut off or holds more than
/// `largest_input`.
std::string unpacked_gzip(std::string_view bytes, const std::string& name);

}  // namespace vestara
