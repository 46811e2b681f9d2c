#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"

// Draws that were entered by hand, when a file takes the archive's place. All rows sorted by date and wheel.

namespace vestara {

/// What becomes of those that the file does not have.
enum class MissingManual { lose, keep };

/// How the file has a draw; the contest number is not looked at.
enum class InFile { equal, different, missing };

struct ManualDraw {
  int32_t day;  ///< since 1899-12-30
  InFile in_file;
};

/// The marked draws that the archive holds, beside the file. A mark without rows is no draw.
VESTARA_API std::vector<ManualDraw> compare_manual(const std::vector<int32_t>& marked, const std::vector<DrawRow>& held,
                                                   const std::vector<DrawRow>& rows);

/// The rows of the file and, in their places, those of the draws that it does not have.
VESTARA_API std::vector<DrawRow> with_missing(const std::vector<DrawRow>& rows, const std::vector<DrawRow>& held,
                                              const std::vector<ManualDraw>& manual);

/// "replaced", "kept" or "lost".
VESTARA_API std::string_view fate_of(const ManualDraw& draw, MissingManual missing);

}  // namespace vestara
