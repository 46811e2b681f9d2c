#pragma once

#include "hosts/cli/command.h"

namespace vestara::host {

/// What a command line asks for.
struct Request {
  Settings settings;
  Run run;
};

/// Failure (usage) for anything that is not a right command line.
Request parse_command_line(int argc, const char* const* argv);

}  // namespace vestara::host
