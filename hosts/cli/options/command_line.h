#pragma once

#include "hosts/cli/options/options.h"

namespace vestara::host {

/// Failure (usage) for anything that is not a right command line.
Options parse_command_line(int argc, const char* const* argv);

}  // namespace vestara::host
