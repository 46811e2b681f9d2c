#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/export.h"

namespace automation {

/// Appends to a file in one write, so that what several threads or processes append stands one after the other. A
/// missing file is made. One that would grow beyond `largest` bytes is renamed first, ".1" after its name, in the place
/// of an earlier one. Only a regular file is written, never what a symbolic link points to. The call never waits. False
/// when nothing was written.
AUTOMATION_API bool append_to_file(const std::string& path, std::string_view bytes, int64_t largest) noexcept;

/// Whether this user may append to the file, or make it when it is missing. Changes nothing.
AUTOMATION_API bool can_append(const std::string& path);

}  // namespace automation
