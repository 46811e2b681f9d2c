#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/cli/draws/draw_row.h"
#include "hosts/cli/output/output.h"

// Draws that were entered by hand, when a file takes the archive's place. All rows sorted by date and wheel.

namespace vestara::host {

/// What becomes of those that the file does not have.
enum class MissingManual { lose, keep };

/// How the file has a draw; the contest number is not looked at.
enum class InFile { equal, different, missing };

struct ManualDraw {
  int32_t day;  ///< since 1899-12-30
  InFile in_file;
};

/// The marked draws that the archive holds, beside the file. A mark without rows is no draw.
std::vector<ManualDraw> compare_manual(const std::vector<int32_t>& marked, const std::vector<DrawRow>& held,
                                       const std::vector<DrawRow>& rows);

/// The rows of the file and, in their places, those of the draws that it does not have.
std::vector<DrawRow> with_missing(const std::vector<DrawRow>& rows, const std::vector<DrawRow>& held,
                                  const std::vector<ManualDraw>& manual);

/// "replaced", "kept" or "lost".
std::string_view fate_of(const ManualDraw& draw, MissingManual missing);

/// Names the draws that are lost; writes nothing when none is. `verb` is "went" or "would go".
void warn_of_lost(std::ostream& err, const std::vector<ManualDraw>& manual, const std::string& verb);

}  // namespace vestara::host
