#pragma once  // for hosts

#include <string>

#include "automation/export.h"

namespace automation {

/// The full path of the shared object or program that holds an address; empty when the system does not tell.
AUTOMATION_API std::string shared_object_path(const void* address);
/// Its folder, without a separator at the end; "." when the system does not tell.
AUTOMATION_API std::string shared_object_folder(const void* address);
/// Loads a library for the rest of the process. "" when it worked, else the system's reason.
AUTOMATION_API std::string load_shared_object(const std::string& path);

}  // namespace automation
