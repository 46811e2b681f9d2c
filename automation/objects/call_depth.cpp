#include "automation/objects/call_depth.h"

#include <string>

#include "automation/error.h"

namespace automation {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): how deep this thread is
thread_local int32_t running = 0;

RunTimeError too_deep() {
  return out_of_stack_space().continued(
      ": " + std::to_string(deepest_call) +
      " calls lie inside each other; an object that is asked must not ask its caller again");
}

}  // namespace

CallDepth::CallDepth(Caller caller) {
  constexpr int32_t few_more = 4;
  if (running >= deepest_call + (caller == Caller::library ? few_more : 0)) throw too_deep();
  ++running;
}

CallDepth::~CallDepth() { --running; }

}  // namespace automation
