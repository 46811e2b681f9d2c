#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "vestara/files/system_file.h"

namespace vestara::host {

/// Reads a file of combinations, "-" being standard input, and names the lines of other lengths on `err`. Failure
/// (file).
SystemFile read_system_file(const std::string& path, std::ostream& err);

/// Writes combinations a line each, with LF; an empty path or "-" is `out`. Failure (file); what the file held before
/// is then still there.
void write_system_file(const std::string& path, std::ostream& out, std::string_view combinations);

}  // namespace vestara::host
