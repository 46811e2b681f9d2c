#pragma once

#include <string_view>

namespace vestara::host {

/// Writes all bytes; false, with errno set, when the system does not take them.
bool write_all(int descriptor, std::string_view bytes);

}  // namespace vestara::host
