#include "automation/yield.h"

#include <atomic>
#include <chrono>

#include "automation/c_abi/automation.h"
#include "automation/c_abi/failure.h"
#include "automation/error.h"

namespace automation::c_abi {
namespace {

std::atomic<int32_t> interval{0};
/// When the hook runs next on this thread. Another thread's load must not use its turns up.
thread_local std::chrono::steady_clock::time_point due;

bool is_due() {
  const int32_t milliseconds = interval.load(std::memory_order_relaxed);
  if (milliseconds == 0) return true;
  const auto now = std::chrono::steady_clock::now();
  if (now < due) return false;
  due = now + std::chrono::milliseconds(milliseconds);
  return true;
}

}  // namespace
}  // namespace automation::c_abi

using automation::c_abi::guarded;

void au_set_yield_hook(au_yield_hook hook, void* host) {
  guarded([&] {
    if (!hook) {
      automation::set_yield_hook(nullptr);
      return;
    }
    automation::set_yield_hook([hook, host] {
      if (automation::c_abi::is_due() && hook(host) != 0) throw automation::user_interrupt();
    });
  });
}

void au_set_yield_interval(int32_t milliseconds) {
  automation::c_abi::interval.store(milliseconds > 0 ? milliseconds : 0, std::memory_order_relaxed);
  automation::c_abi::due = {};
}
