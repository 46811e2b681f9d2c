#pragma once

#include <cstdint>
#include <ostream>

#include "vestara/archive/lotto.h"

namespace vestara::host {

/// A bar on a terminal while a cLotto imports; nothing elsewhere. Leaves an empty line behind.
class ImportProgress {
 public:
  ImportProgress(cLotto& lotto, std::ostream& err);
  ImportProgress(const ImportProgress&) = delete;
  ImportProgress& operator=(const ImportProgress&) = delete;
  ~ImportProgress();

 private:
  void show(int32_t position, int32_t count);

  cLotto& lotto_;
  std::ostream& err_;
  int32_t cookie_ = 0;
  int32_t percent_ = -1;
};

}  // namespace vestara::host
