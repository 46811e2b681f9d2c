#include "vestara/keeping/import/draw_insertion.h"

#include "automation/date.h"
#include "automation/error.h"
#include "vestara/foundation/failure.h"
#include "vestara/keeping/draw_changes.h"

namespace vestara {
namespace {

/// Runs a change; what the archive refuses is a Failure with its words.
template <class Change>
void run_change(const Archive& archive, Change change) {
  try {
    change(*archive.connector());
  } catch (const automation::RunTimeError& error) {
    if (error.kind() != FailureKind::database) throw;
    archive.fail("the archive refuses the draws, nothing was changed");
  }
}

}  // namespace

void insert_draws(const Archive& archive, std::span<const DrawRow> rows, const Progress& progress) {
  const auto told = [&](int32_t stored, int32_t count) {
    if (progress) progress(static_cast<uint64_t>(stored), static_cast<uint64_t>(count));
  };
  run_change(archive, [&](DbConnector& connector) {
    insert_draws(connector, DatabaseType::many_rows_per_insert, rows, Remainder::written, told);
  });
}

void delete_draws(const Archive& archive, int32_t day) {
  run_change(archive, [&](DbConnector& connector) { delete_draw(connector, automation::Date::from_day(day)); });
}

void delete_all_draws(const Archive& archive) {
  run_change(archive, [](DbConnector& connector) { delete_all_draws(connector); });
}

}  // namespace vestara
