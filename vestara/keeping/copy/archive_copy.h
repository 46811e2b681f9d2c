#pragma once  // for hosts

#include <cstdint>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/foundation/progress.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// What becomes of the rows that the archive copied to has.
enum class HeldRows : bool { refuse, replace };

struct CopiedTable {
  std::string_view name;
  int64_t rows;
};

/// Makes one archive hold what another holds: every table, row by row with its key, read again on both sides and
/// compared before it is kept. Both have their tables. One transaction: after a Failure, or when the process ends
/// before it, the archive copied to holds what it held. The table of hand-entered draws may be new there, and empty.
/// `progress` counts rows, each of them once written and once compared.
VESTARA_API std::vector<CopiedTable> copy_archive(const Archive& from, const Archive& to, HeldRows held,
                                                  const Progress& progress = {});

}  // namespace vestara
