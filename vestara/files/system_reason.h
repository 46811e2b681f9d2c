#pragma once

#include <string>
#include <string_view>

namespace vestara {

/// "Permission denied; " and the remedy. What the process ran out of, descriptors, memory or room, has a remedy of its
/// own. `code` is an errno.
std::string system_reason(int code, std::string_view remedy);

}  // namespace vestara
