#pragma once

#include <string>
#include <string_view>

#include "vestara/foundation/export.h"

namespace vestara {

/// True for the bytes of a zip archive, also of an empty one.
VESTARA_API bool is_zip(std::string_view bytes);

/// The bytes of the one file in a zip archive; folders and hidden files do not count. Failure (file) when there is
/// none or more than one, when it is damaged, locked by a password or larger than
/// `largest_input`.
std::string only_file_of_zip(std::string_view bytes, const std::string& name);

}  // namespace vestara
