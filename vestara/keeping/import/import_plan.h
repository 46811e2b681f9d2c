#pragma once  // for hosts

#include <cstdint>
#include <vector>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/import/archive_change.h"
#include "vestara/keeping/import/import_mode.h"
#include "vestara/keeping/import/manual_draws.h"

namespace vestara {

enum class ImportAction {
  add,      ///< the new rows are added, the others are not touched
  rewrite,  ///< the archive is emptied and filled anew
  refuse,
};

/// Common rows that show a file to be of this archive.
inline constexpr size_t enough_in_common = 100;

/// What an import is going to do, known before it does anything. `stored`, `removed`, `changed` and `missing` are
/// sorted by date and wheel.
struct ImportPlan {
  ImportAction action = ImportAction::refuse;
  std::vector<DrawRow> stored;      ///< rows to write, all with a contest number
  std::vector<int32_t> cleared;     ///< days whose draws entered by hand give way before that
  std::vector<DrawRow> removed;     ///< draws that the archive loses, changed ones as they were
  std::vector<ChangedRow> changed;  ///< what stands in the way of `add`, or is overwritten
  std::vector<DrawRow> missing;     ///< draws of the archive that the file does not have and that would go, or go
  std::vector<ManualDraw> manual;   ///< the draws entered by hand, beside the file
  MissingManual missing_manual = MissingManual::lose;  ///< what becomes of those that the file does not have
  std::vector<int32_t> old_marks;                      ///< days that are no longer entered by hand
  bool is_joined = false;  ///< rows that the file does not have stay without being asked for

  // Rows of the archive.
  size_t held = 0;            ///< before
  size_t in_common = 0;       ///< equal to one of the file
  size_t other_contests = 0;  ///< of these, where the file names another contest number
  size_t added = 0;
  size_t rewritten = 0;  ///< have other numbers afterwards
  size_t gone = 0;
  size_t kept = 0;  ///< not in the file and still there
};

/// `marked` and `rows` sorted, `rows` with each place once; contest number 0 for the place of the date in its year.
VESTARA_API ImportPlan plan_import(const HeldDraws& held, const std::vector<int32_t>& marked,
                                   const std::vector<DrawRow>& rows, ImportMode mode, MissingManual missing);

}  // namespace vestara
