#include "automation/yield.h"

#include <atomic>
#include <utility>

#include "automation/system/process_wide.h"

namespace automation {
namespace {

/// Never destroyed: a loop of another thread may yield while the process ends.
ProcessWide<std::function<void()>>& hook() {
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  static auto* const installed = new ProcessWide<std::function<void()>>;
  return *installed;
}

/// Loops without a hook, most of them, take no lock.
std::atomic<bool>& has_hook() {
  static std::atomic<bool> installed{false};
  return installed;
}

}  // namespace

void yield_to_host() {
  if (!has_hook().load(std::memory_order_relaxed)) return;
  // A copy: the hook may take itself away while it runs, or another thread may.
  if (const auto installed = hook().get()) installed();
}

std::function<void()> set_yield_hook(std::function<void()> replacement) {
  hook().update([&](std::function<void()>& installed) {
    std::swap(installed, replacement);
    has_hook().store(static_cast<bool>(installed), std::memory_order_relaxed);
  });
  return replacement;
}

}  // namespace automation
