#pragma once

#include <cstdint>

#include "automation/export.h"

// The entry points by which a library that has classes registers itself. An installer that knows nothing of it loads
// the library, finds these two by name, and calls them: 0 is success, anything else a run-time error's number. Scope 0
// is the user's, 1 the whole system's. Compiled into every such library.

extern "C" {
AUTOMATION_EXPORT int32_t automation_register_classes(int32_t scope);
AUTOMATION_EXPORT int32_t automation_unregister_classes(int32_t scope);
}
