#pragma once  // for hosts

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/progress.h"
#include "vestara/keeping/archive.h"
#include "vestara/keeping/import/import_plan.h"
#include "vestara/keeping/import/removed_rows.h"

namespace vestara {

/// How an import is to go about it.
struct ImportRules {
  ImportMode mode = ImportMode::guarded;
  MissingManual missing_manual = MissingManual::lose;
  std::function<RemovalPlace()> backup;  ///< where what is removed is kept, asked when something is; empty for nowhere
};

struct ImportOutcome {
  ImportPlan plan;
  std::optional<std::filesystem::path> backup;  ///< the file of what was removed
};

/// What `import_draws` would do.
VESTARA_API ImportPlan plan_for(const Archive& archive, const std::vector<DrawRow>& rows, const ImportRules& rules);

/// Carries the plan out, unless it is to refuse. One transaction: after a Failure, or when the process ends before it,
/// the archive holds what it held.
VESTARA_API ImportOutcome import_draws(const Archive& archive, const std::vector<DrawRow>& rows,
                                       const ImportRules& rules, const Progress& progress = {});

}  // namespace vestara
