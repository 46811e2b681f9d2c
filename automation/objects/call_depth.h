#pragma once

#include <cstdint>

#include "automation/export.h"

namespace automation {

/// The most calls by name that may be nested on one thread. A circle of objects that call each other ends here, well
/// before the smallest stack that hosts give their threads as a rule (8 MiB) is full, under sanitizers too.
inline constexpr int32_t deepest_call = 64;

/// Who calls: a host calls a member, or the library calls an object of the host. The library may go a few calls deeper.
/// The error of a circle is then raised where the host calls a member again. Raised in the library's own call, a member
/// would trap it.
enum class Caller : uint8_t { host, library };

/// One call that is running on this thread, for as long as it lives. Error 28 when it would be one too many.
class AUTOMATION_API CallDepth {
 public:
  explicit CallDepth(Caller caller);
  ~CallDepth();
  CallDepth(const CallDepth&) = delete;
  CallDepth& operator=(const CallDepth&) = delete;
};

}  // namespace automation
