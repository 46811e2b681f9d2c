#pragma once

namespace failing_memory {

/// While it lives, `operator new` of this program and its libraries gives so many pieces of memory and then fails.
class After {
 public:
  explicit After(int pieces);
  ~After();
  After(const After&) = delete;
  After& operator=(const After&) = delete;
};

}  // namespace failing_memory
