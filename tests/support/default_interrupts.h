#pragma once

#include <csignal>

namespace testing_support {

/// While one lives, Ctrl-C is what it usually is: tests may be started by a shell that ignores it.
class DefaultInterrupts {
 public:
  DefaultInterrupts() : before_(std::signal(SIGINT, SIG_DFL)) {}
  DefaultInterrupts(const DefaultInterrupts&) = delete;
  DefaultInterrupts& operator=(const DefaultInterrupts&) = delete;
  ~DefaultInterrupts() { std::signal(SIGINT, before_); }

 private:
  void (*before_)(int);
};

}  // namespace testing_support
