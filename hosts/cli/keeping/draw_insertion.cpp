#include "hosts/cli/keeping/draw_insertion.h"

#include "automation/error.h"
#include "vestara/keeping/draw_changes.h"

namespace vestara::host {
namespace {

/// Runs a change; what the archive refuses is a Failure with its words.
template <class Change>
void run_change(const ArchiveSession& session, Change change) {
  try {
    change(*session.connector());
  } catch (const automation::RunTimeError& error) {
    if (error.kind() != automation::FailureKind::database) throw;
    session.fail("the archive refuses the draws, nothing was changed");
  }
}

}  // namespace

void insert_draws(const ArchiveSession& session, std::span<const DrawRow> rows, const InsertionProgress& progress) {
  const auto told = [&](int32_t stored, int32_t count) {
    if (progress) progress(static_cast<size_t>(stored), static_cast<size_t>(count));
  };
  run_change(session, [&](DbConnector& archive) {
    vestara::insert_draws(archive, DatabaseType::many_rows_per_insert, rows, Remainder::written, told);
  });
}

void delete_draws(const ArchiveSession& session, int32_t day) {
  run_change(session, [&](DbConnector& archive) { delete_draw(archive, automation::Date::from_day(day)); });
}

void delete_all_draws(const ArchiveSession& session) {
  run_change(session, [](DbConnector& archive) { vestara::delete_all_draws(archive); });
}

}  // namespace vestara::host
