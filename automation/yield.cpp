#include "automation/yield.h"

#include <utility>

namespace automation {
namespace {

std::function<void()>& hook() {
  static std::function<void()> installed;
  return installed;
}

}  // namespace

void yield_to_host() {
  // A copy: the hook may take itself away while it runs.
  if (const auto installed = hook()) installed();
}

std::function<void()> set_yield_hook(std::function<void()> replacement) {
  return std::exchange(hook(), std::move(replacement));
}

}  // namespace automation
