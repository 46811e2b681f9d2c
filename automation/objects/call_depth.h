#pragma once

#include <cstdint>

#include "automation/export.h"

namespace automation {

/// Calls by name that may lie inside each other on one thread. A circle of objects that ask each other ends here, well
/// before the smallest stack that hosts give their threads as a rule (8 MiB) is full, under sanitizers too.
inline constexpr int32_t deepest_call = 64;

/// Who calls: a host a member, or the library an object of the host. The library may go a few calls deeper, so that a
/// circle's error is raised where the host asks again; inside a member it would only be trapped.
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
