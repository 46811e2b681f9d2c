#include "hosts/cli/archive/required_draw.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/draw_rows.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/archive_counts.h"
#include "vestara/keeping/import/draw_insertion.h"
#include "vestara/keeping/import/manual_marks.h"

namespace vestara::host {
namespace {

struct DrawDeleteOptions {
  std::string date;
  Consent consent = Consent::ask;
};

void add_draw_delete(CLI::App& app, DrawDeleteOptions& options) {
  argument(app, "DATE", options.date, "YYYY-MM-DD or D/M/YYYY")->required();
  add_yes(app, options.consent, "delete without asking");
}

/// The rows and the mark together. Returns how many rows there were.
int32_t remove(const ArchiveSession& session, int32_t day) {
  ManualMarks marks(session);
  Transaction transaction(session);
  marks.look_again();
  const int32_t rows = rows_of_day(session, day);
  delete_draws(session, day);
  marks.remove(day);
  transaction.commit();
  return rows;
}

ExitCode run_draw_delete(const DrawDeleteOptions& options, const Context& context) {
  const int32_t day = day_value("DATE", options.date);
  const ArchiveSession session = context.open_archive();
  context.require_consent(options.consent, "delete " + rows_in_words(some_rows_of_day(session, day), day));
  const int32_t gone = remove(session, day);
  Report report;
  report.facts = {{"result", "deleted"}, {"date", shown_day(day)}, {"rows", int64_t{gone}}};
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command draw_delete_command{"delete", Group::draws, "Remove all rows of a date from the archive",
                                         "vestara draw delete 2026-08-22 --yes",
                                         bound<add_draw_delete, run_draw_delete>};

}  // namespace vestara::host
