#pragma once

#include <cstdint>
#include <ostream>
#include <string_view>
#include <vector>

#include "hosts/cli/keeping/archive_session.h"

namespace vestara::host {

/// What becomes of the rows that the archive copied to has.
enum class HeldRows : bool { refuse, replace };

struct CopiedTable {
  std::string_view name;
  int64_t rows;
};

/// Makes one archive hold what another holds: every table, row by row with its key, read again on both sides and
/// compared before it is kept. Both have their tables. One transaction: after a Failure, or when
/// the process ends before it, the archive copied to holds what it held; the table of hand-entered draws may be new
/// there, and empty. Shows a bar on a terminal.
std::vector<CopiedTable> copy_archive(const ArchiveSession& from, const ArchiveSession& to, HeldRows held,
                                      std::ostream& err);

}  // namespace vestara::host
