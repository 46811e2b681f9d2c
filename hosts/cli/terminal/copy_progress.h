#pragma once

#include <algorithm>
#include <cstdint>
#include <ostream>

#include "hosts/cli/failure.h"
#include "hosts/cli/terminal/interruption.h"
#include "hosts/cli/terminal/progress_bar.h"

namespace vestara::host {

/// Counts rows, each of them once written and once compared. Where an Interruption lives, Ctrl-C ends the copy by a
/// Failure (interrupted).
class CopyProgress {
 public:
  CopyProgress(std::ostream& err, int64_t rows) : bar_(err, "copy"), steps_(2 * static_cast<uint64_t>(rows)) {}

  void advance() {
    constexpr uint64_t seldom = 256;
    if (++done_ % seldom != 0 && done_ != steps_) return;
    bar_.show(std::min(done_, steps_), std::max(steps_, uint64_t{1}));
    check_interruption();
  }

  void check_interruption() const {
    if (Interruption::requested())
      throw Failure(ExitCode::interrupted, "interrupted, the archive copied to is what it was");
  }

 private:
  ProgressBar bar_;
  uint64_t steps_;
  uint64_t done_ = 0;
};

}  // namespace vestara::host
