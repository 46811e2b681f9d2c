#pragma once

#include <cstdint>
#include <vector>

#include "hosts/vestara/archive_change.h"
#include "hosts/vestara/draw_row.h"
#include "hosts/vestara/manual_draws.h"

namespace vestara::host {

/// What an import is going to do, known before it does anything.
struct ImportPlan {
  std::vector<DrawRow> rows;  ///< what the archive then holds: those of the file, and what is kept
  ArchiveChange change;
  std::vector<ManualDraw> manual;
  std::vector<int32_t> old_marks;  ///< days that are no longer entered by hand
};

/// `marked` and `rows` sorted.
ImportPlan plan_import(const HeldDraws& held, const std::vector<int32_t>& marked, const std::vector<DrawRow>& rows,
                       MissingManual missing);

}  // namespace vestara::host
