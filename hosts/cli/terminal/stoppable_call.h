#pragma once

#include <functional>

#include "hosts/cli/terminal/interruption.h"

namespace vestara::host {

/// While one lives, Ctrl-C ends the library's long loops by an error; `Interruption::requested` tells it from others.
class StoppableCall {
 public:
  StoppableCall();
  StoppableCall(const StoppableCall&) = delete;
  StoppableCall& operator=(const StoppableCall&) = delete;
  ~StoppableCall();

 private:
  Interruption interruption_;
  std::function<void()> before_;
};

}  // namespace vestara::host
