#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "hosts/cli/draws/draw_row.h"
#include "hosts/cli/keeping/archive_session.h"
#include "hosts/cli/keeping/draw_insertion.h"
#include "hosts/cli/keeping/import_plan.h"

namespace vestara::host {

/// How an import is to go about it.
struct ImportRules {
  ImportMode mode = ImportMode::guarded;
  MissingManual missing_manual = MissingManual::lose;
  std::optional<std::string> backup_url;  ///< the archive's URL, whose place keeps what is removed; without it, nothing
};

struct ImportOutcome {
  ImportPlan plan;
  std::optional<std::filesystem::path> backup;  ///< the file of what was removed
};

/// What `import_draws` would do.
ImportPlan plan_for(const ArchiveSession& session, const std::vector<DrawRow>& rows, const ImportRules& rules);

/// Carries the plan out, unless it is to refuse. One transaction: after a Failure, or when the process ends before it,
/// the archive holds what it held.
ImportOutcome import_draws(const ArchiveSession& session, const std::vector<DrawRow>& rows, const ImportRules& rules,
                           const InsertionProgress& progress);

}  // namespace vestara::host
