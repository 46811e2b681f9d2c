#pragma once  // for hosts

#include <cstdint>
#include <optional>
#include <string>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// What the dates of the draws tell. Days count from 1899-12-30.
struct DateFacts {
  std::optional<int32_t> first;
  std::optional<int32_t> last;
  int64_t dates = 0;
  int64_t lacking = 0;     ///< rows that would be there had every wheel been drawn on each date since its first one
  int64_t impossible = 0;  ///< dates that are none
  std::string example;     ///< the first of those, as it is stored
};

/// Reads the dates of storico, which can be read. Failure (database).
VESTARA_API DateFacts check_dates(const Archive& archive);

}  // namespace vestara
