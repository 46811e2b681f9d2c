#include "hosts/cli/keeping/archive_import.h"

#include <string>

#include "hosts/cli/failure.h"
#include "hosts/cli/keeping/manual_marks.h"
#include "hosts/cli/keeping/removed_rows.h"
#include "hosts/cli/keeping/table_reader.h"

namespace vestara::host {
namespace {

void require_stored(const ArchiveSession& session, const ImportPlan& plan) {
  const auto stored = static_cast<size_t>(row_count(session, archive_tables().front()));
  const size_t needed = plan.held - plan.gone + plan.added;
  if (stored == needed) return;
  throw Failure(ExitCode::database, "the archive took " + std::to_string(stored) + " of " + std::to_string(needed) +
                                        " rows, nothing was changed; it must be empty after a DELETE and keep every "
                                        "row");
}

void carry_out(const ArchiveSession& session, const ImportPlan& plan, const InsertionProgress& progress) {
  if (plan.action == ImportAction::rewrite) delete_all_draws(session);
  for (const int32_t day : plan.cleared) delete_draws(session, day);
  insert_draws(session, plan.stored, progress);
  require_stored(session, plan);
}

/// The file of what goes, before it goes.
std::optional<RemovedRows> backup_of(const ImportPlan& plan, const HeldDraws& held, const ImportRules& rules) {
  const bool loses_blank = plan.action == ImportAction::rewrite && !held.blank.empty();
  if (!rules.backup_url || (plan.removed.empty() && !loses_blank)) return std::nullopt;
  return std::optional<RemovedRows>(std::in_place, removal_place(*rules.backup_url),
                                    removal_of(plan.removed, loses_blank ? held.blank : std::vector<std::string>()));
}

}  // namespace

ImportPlan plan_for(const ArchiveSession& session, const std::vector<DrawRow>& rows, const ImportRules& rules) {
  return plan_import(held_draws(session), ManualMarks(session).days(), rows, rules.mode, rules.missing_manual);
}

ImportOutcome import_draws(const ArchiveSession& session, const std::vector<DrawRow>& rows, const ImportRules& rules,
                           const InsertionProgress& progress) {
  ManualMarks marks(session);
  Transaction transaction(session);
  marks.look_again();
  const HeldDraws held = held_draws(session);
  ImportOutcome outcome{plan_import(held, marks.days(), rows, rules.mode, rules.missing_manual), {}};
  const ImportPlan& plan = outcome.plan;
  if (plan.action == ImportAction::refuse) return outcome;
  auto backup = backup_of(plan, held, rules);
  carry_out(session, plan, progress);
  for (const int32_t day : plan.old_marks) marks.remove(day);
  transaction.commit();
  if (backup) {
    backup->keep();
    outcome.backup = backup->path();
  }
  return outcome;
}

}  // namespace vestara::host
