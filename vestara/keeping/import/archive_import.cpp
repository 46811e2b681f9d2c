#include "vestara/keeping/import/archive_import.h"

#include <string>

#include "vestara/foundation/failure.h"
#include "vestara/keeping/copy/table_reader.h"
#include "vestara/keeping/import/draw_insertion.h"
#include "vestara/keeping/import/manual_marks.h"
#include "vestara/keeping/import/removed_rows.h"

namespace vestara {
namespace {

void require_stored(const Archive& archive, const ImportPlan& plan) {
  const auto stored = static_cast<size_t>(row_count(archive, archive_tables().front()));
  const size_t needed = plan.held - plan.gone + plan.added;
  if (stored == needed) return;
  throw Failure(FailureKind::database, "the archive took " + std::to_string(stored) + " of " + std::to_string(needed) +
                                           " rows, nothing was changed; it must be empty after a DELETE and keep every "
                                           "row");
}

void carry_out(const Archive& archive, const ImportPlan& plan, const Progress& progress) {
  if (plan.action == ImportAction::rewrite) delete_all_draws(archive);
  for (const int32_t day : plan.cleared) delete_draws(archive, day);
  insert_draws(archive, plan.stored, progress);
  require_stored(archive, plan);
}

/// The file of what goes, before it goes.
std::optional<RemovedRows> backup_of(const ImportPlan& plan, const HeldDraws& held, const ImportRules& rules) {
  const bool loses_blank = plan.action == ImportAction::rewrite && !held.blank.empty();
  if (!rules.backup || (plan.removed.empty() && !loses_blank)) return std::nullopt;
  return std::optional<RemovedRows>(std::in_place, rules.backup(),
                                    removal_of(plan.removed, loses_blank ? held.blank : std::vector<std::string>()));
}

}  // namespace

ImportPlan plan_for(const Archive& archive, const std::vector<DrawRow>& rows, const ImportRules& rules) {
  return plan_import(held_draws(archive), ManualMarks(archive).days(), rows, rules.mode, rules.missing_manual);
}

ImportOutcome import_draws(const Archive& archive, const std::vector<DrawRow>& rows, const ImportRules& rules,
                           const Progress& progress) {
  ManualMarks marks(archive);
  Transaction transaction(archive);
  marks.look_again();
  const HeldDraws held = held_draws(archive);
  ImportOutcome outcome{plan_import(held, marks.days(), rows, rules.mode, rules.missing_manual), {}};
  const ImportPlan& plan = outcome.plan;
  if (plan.action == ImportAction::refuse) return outcome;
  auto backup = backup_of(plan, held, rules);
  carry_out(archive, plan, progress);
  for (const int32_t day : plan.old_marks) marks.remove(day);
  transaction.commit();
  if (backup) {
    backup->keep();
    outcome.backup = backup->path();
  }
  return outcome;
}

}  // namespace vestara
