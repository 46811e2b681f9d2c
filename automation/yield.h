#pragma once  // installed

#include <functional>

#include "automation/export.h"

namespace automation {

/// Long loops call this so that the host stays responsive: it calls the host's hook, or does nothing without one. The
/// hook may raise an error to end the loop, or call any object. There is one hook for the process: it runs on the
/// thread whose loop yields, on several at once when several do.
AUTOMATION_API void yield_to_host();

/// Installs a hook, or none; returns the one before. Any thread may. Another thread may still be inside the one before,
/// or about to enter it, when this returns.
AUTOMATION_API std::function<void()> set_yield_hook(std::function<void()> hook);

}  // namespace automation
