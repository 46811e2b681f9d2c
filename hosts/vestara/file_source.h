#pragma once

#include <string>

namespace vestara::host {

/// The name that stands for standard input.
inline constexpr const char* standard_input = "-";

/// How the file is called in messages.
std::string source_name(const std::string& path);

/// All bytes of a file, or of standard input; of a zip archive the one file in it. Failure (file) when it cannot
/// be read.
std::string read_source(const std::string& path);

}  // namespace vestara::host
