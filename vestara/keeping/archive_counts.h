#pragma once

#include <cstdint>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

// Days count from 1899-12-30.

namespace vestara {

/// Rows that the archive holds of a day.
VESTARA_API int32_t rows_of_day(const Archive& archive, int32_t day);
/// The place of a day among the draw dates of its year, from 1, whether the archive holds it or not.
VESTARA_API int16_t position_in_year(const Archive& archive, int32_t day);

}  // namespace vestara
