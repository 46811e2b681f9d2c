#pragma once

#include <span>

#include "hosts/cli/command.h"

namespace vestara::host {

/// The commands of the program, in the order of its help. What is not in this list is no command.
std::span<const Command* const> commands();

}  // namespace vestara::host
