#pragma once

#include <cstdint>

#include "automation/error.h"
#include "automation/yield.h"

namespace testing_support {

/// Ends what would go on for ever, or fill the memory: the host's own way out.
class Patience {
 public:
  Patience() {
    automation::set_yield_hook([this] {
      if (--left_ < 0) throw automation::RunTimeError(automation::unspecified_failure, "the host lost its patience");
    });
  }
  ~Patience() { automation::set_yield_hook({}); }
  Patience(const Patience&) = delete;
  Patience& operator=(const Patience&) = delete;
  void renew() { left_ = 5000; }

 private:
  int32_t left_ = 0;
};

}  // namespace testing_support
