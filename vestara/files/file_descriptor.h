#pragma once  // for hosts

#include <string_view>

#include "vestara/foundation/export.h"

namespace vestara {

/// Writes all bytes; false, with errno set, when the system does not take them.
VESTARA_API bool write_all(int descriptor, std::string_view bytes);

}  // namespace vestara
