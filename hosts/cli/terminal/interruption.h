#pragma once

#include <csignal>

namespace vestara::host {

/// While one lives, the first Ctrl-C is noted instead of ending the process; the second ends it. One at a time.
/// Where interrupts were ignored they stay so.
class Interruption {
 public:
  Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  /// False when none lives.
  static bool requested();

 private:
  struct sigaction before_ {};
};

}  // namespace vestara::host
