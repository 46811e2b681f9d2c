#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vestara::host {

/// Something that is not as it should be in an archive.
struct Finding {
  std::string what;  ///< "rows without a date or a wheel"
  int64_t count;
  std::string example;
  std::string remedy;  ///< what to do
};

using Findings = std::vector<Finding>;

}  // namespace vestara::host
