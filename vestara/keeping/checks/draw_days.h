#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// What the rows of one day say about it. Days count from 1899-12-30.
struct DrawDay {
  int32_t day = 0;
  int32_t wheels = 0;         ///< different ones
  std::string wheel;          ///< one of them
  int32_t least_contest = 0;  ///< 0 when no row has a number
  int32_t most_contest = 0;
};

/// The days of storico, oldest first; rows whose date is none are left out. Failure (database).
VESTARA_API std::vector<DrawDay> draw_days(const Archive& archive);

}  // namespace vestara
