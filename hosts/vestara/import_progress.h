#pragma once

#include <cstdint>
#include <ostream>

#include "hosts/vestara/progress_bar.h"
#include "vestara/archive/lotto.h"

namespace vestara::host {

/// A bar on a terminal while a cLotto imports.
class ImportProgress {
 public:
  ImportProgress(cLotto& lotto, std::ostream& err);
  ImportProgress(const ImportProgress&) = delete;
  ImportProgress& operator=(const ImportProgress&) = delete;
  ~ImportProgress();

 private:
  cLotto& lotto_;
  ProgressBar bar_;
  int32_t cookie_ = 0;
};

}  // namespace vestara::host
