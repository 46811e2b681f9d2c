#pragma once

#include <ostream>
#include <vector>

#include "hosts/vestara/archive_session.h"
#include "hosts/vestara/draw_row.h"
#include "hosts/vestara/import_plan.h"

namespace vestara::host {

/// Makes the archive hold these rows, in this order, with or without the draws entered by hand that they lack, and
/// says what that changed. One transaction: after a Failure, or when the process ends before it, the archive holds what
/// it held.
ImportPlan replace_archive(const ArchiveSession& session, const std::vector<DrawRow>& rows, MissingManual missing,
                           std::ostream& err);

}  // namespace vestara::host
