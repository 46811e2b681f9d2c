#pragma once  // for hosts

#include <cstdio>
#include <string>

#include "automation/export.h"

namespace automation {

/// Opens a file whose path is UTF-8, in a mode of fopen. Null when it fails, errno says why.
AUTOMATION_API std::FILE* open_file(const std::string& path, const char* mode);

/// The value of an environment variable, in UTF-8; empty when there is none.
AUTOMATION_API std::string environment_variable(const char* name);

}  // namespace automation
