#pragma once  // for hosts

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

// Days count from 1899-12-30.

namespace vestara {

/// Rows that the archive holds of a day.
VESTARA_API int32_t rows_of_day(const Archive& archive, int32_t day);
/// The place of a day among the draw dates of its year, from 1, whether the archive holds it or not.
VESTARA_API int16_t position_in_year(const Archive& archive, int32_t day);
/// The last day that has a row.
VESTARA_API std::optional<int32_t> newest_day(const Archive& archive);

/// What the archive holds of a wheel.
struct WheelRows {
  std::string code;  ///< as it is stored, "" for Null
  int32_t rows = 0;
  std::optional<int32_t> first;  ///< days; nothing where no date is stored
  std::optional<int32_t> last;
};

/// The wheels of all rows by their codes, RN last; whether there are such wheels is not looked at.
VESTARA_API std::vector<WheelRows> rows_by_wheel(const Archive& archive);

}  // namespace vestara
