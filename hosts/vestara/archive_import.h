#pragma once

#include <ostream>
#include <vector>

#include "hosts/vestara/archive_change.h"
#include "hosts/vestara/archive_session.h"
#include "hosts/vestara/draw_row.h"

namespace vestara::host {

/// Makes the archive hold exactly these rows, in this order, and says what that changed. One transaction: after a
/// Failure, or when the process ends before it, the archive holds what it held.
ArchiveChange replace_archive(const ArchiveSession& session, const std::vector<DrawRow>& rows, std::ostream& err);

}  // namespace vestara::host
