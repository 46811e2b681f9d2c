#pragma once

#include <string>
#include <string_view>

namespace vestara::idl {

/// The manifest that lies beside the COM servers: programs that name it find the classes without any registration.
/// `architecture` is amd64 or x86.
std::string manifest_text(std::string_view architecture);

}  // namespace vestara::idl
