#include "automation/report.h"

#include <atomic>
#include <exception>

namespace automation {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one hook a process
std::atomic<ReportHook> reporting{nullptr};

}  // namespace

void report(std::string_view label, const RunTimeError& error) noexcept {
  const ReportHook hook = reporting;
  if (!hook) return;
  try {
    hook(label, error);
  } catch (const std::exception&) {
    return;  // what cannot be kept is lost, the caller goes on
  }
}

ReportHook set_report_hook(ReportHook hook) { return reporting.exchange(hook); }

}  // namespace automation
