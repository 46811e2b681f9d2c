#pragma once

#include <algorithm>
#include <cstdint>

#include "vestara/foundation/progress.h"

namespace vestara {

/// Counts the rows of a copy, each of them once written and once compared. Tells every 256th, and the end.
class RowProgress {
 public:
  RowProgress(const Progress& progress, int64_t rows) : progress_(progress), steps_(2 * static_cast<uint64_t>(rows)) {}

  void advance() {
    constexpr uint64_t seldom = 256;
    if (++done_ % seldom == 0 || done_ == steps_) tell();
  }
  /// The last word before the copy is kept: it may still be stopped.
  void finish() { tell(); }

 private:
  void tell() {
    if (progress_) progress_(std::min(done_, steps_), std::max(steps_, uint64_t{1}));
  }

  const Progress& progress_;
  uint64_t steps_;
  uint64_t done_ = 0;
};

}  // namespace vestara
