#pragma once

#include <string_view>

#include "automation/error.h"
#include "automation/export.h"

namespace automation {

/// What a library does with an error that no result can carry.
using ReportHook = void (*)(std::string_view label, const RunTimeError& error);

/// Hands over an error that happened where nobody waits for a result: at the end of an object, say. `label` names the
/// place. It goes to the hook; without one it is lost.
AUTOMATION_API void report(std::string_view label, const RunTimeError& error) noexcept;

/// Installs a hook, or none; returns the one before. A library that keeps a log installs one when it is loaded.
AUTOMATION_API ReportHook set_report_hook(ReportHook hook);

}  // namespace automation
