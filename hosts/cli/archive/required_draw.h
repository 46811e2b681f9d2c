#pragma once

#include <cstdint>

#include "vestara/keeping/archive.h"

namespace vestara::host {

/// Rows that the archive holds of a day, counted from 1899-12-30. Failure (nothing_found) when there is none.
int32_t some_rows_of_day(const Archive& archive, int32_t day);

}  // namespace vestara::host
