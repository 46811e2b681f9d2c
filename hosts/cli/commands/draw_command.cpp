#include <variant>
#include <vector>

#include "automation/date.h"
#include "hosts/cli/archive/required_draw.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/commands/draw_show.h"
#include "hosts/cli/options/draw_entry.h"
#include "vestara/archive/lotto.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheels.h"
#include "vestara/keeping/archive_counts.h"
#include "vestara/keeping/import/draw_insertion.h"
#include "vestara/keeping/import/manual_marks.h"

namespace vestara::host {
namespace {

std::string rows_in_words(int32_t rows, int32_t day) {
  return "the " + counted(static_cast<size_t>(rows), "row") + " of " + shown_day(day);
}

/// The archive's own table of wheels decides under which code a row is stored.
void require_wheel_codes(const ArchiveSession& session) {
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel)
    if (alias_of(wheel) != wheel_code(wheel))
      session.fail("the archive's table of wheels does not have " + std::string(wheel_code(wheel)) + " as number " +
                   std::to_string(wheel) + ", nothing was changed");
}

/// What a save finds and does.
struct Saved {
  int16_t contest = 0;
  int32_t replaced = 0;
};

/// The rows and the mark together, in place of what the archive holds of the day. `expected`: rows that may be
/// replaced.
Saved store(const ArchiveSession& session, const DrawSaveOptions& options, std::vector<DrawRow> rows,
            int32_t expected) {
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  require_wheel_codes(session);
  ManualMarks marks(session);
  marks.make_table();
  Transaction transaction(session);
  const Saved saved{options.contest ? *options.contest : position_in_year(session, options.day),
                    rows_of_day(session, options.day)};
  if (saved.replaced > expected && options.consent == Consent::ask)
    throw Failure(ExitCode::database, "another program stored " + rows_in_words(saved.replaced, options.day) +
                                          " meanwhile, nothing was changed; --yes replaces them");
  for (DrawRow& row : rows) row.contest = saved.contest;
  delete_draws(session, options.day);
  insert_draws(session, rows);
  marks.add(options.day);
  transaction.commit();
  return saved;
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

/// What is unusual about a draw is asked before what it replaces.
void require_usual(const DrawSaveOptions& options, const std::vector<DrawRow>& rows, std::ostream& err) {
  require_drawn_wheels(rows, options.day);
  if (const std::string missing = missing_wheels(rows, options.day); !missing.empty())
    require_consent(options.consent, "store the draw of " + shown_day(options.day) + " without " + missing, err);
  if (options.day > automation::now().day())
    require_consent(options.consent, "store a draw of " + shown_day(options.day) + ", which is in the future", err);
}

Report save(const DrawSaveOptions& options, const Context& context) {
  const auto rows = options.file.empty() ? options.rows : rows_in_file(options.file, options.day);
  require_usual(options, rows, context.err);
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const int32_t held = rows_of_day(session, options.day);
  if (held != 0) require_consent(options.consent, "replace " + rows_in_words(held, options.day), context.err);
  const Saved saved = store(session, options, rows, held);
  Report report;
  report.facts = {{"result", saved.replaced == 0 ? "saved" : "replaced"},
                  {"date", shown_day(options.day)},
                  {"contest", int64_t{saved.contest}},
                  {"rows", static_cast<int64_t>(rows.size())},
                  {"replaced", int64_t{saved.replaced}}};
  return report;
}

Report erase(const DrawDeleteOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const int32_t held = some_rows_of_day(session, options.day);
  require_consent(options.consent, "delete " + rows_in_words(held, options.day), context.err);
  const int32_t gone = remove(session, options.day);
  Report report;
  report.facts = {{"result", "deleted"}, {"date", shown_day(options.day)}, {"rows", int64_t{gone}}};
  return report;
}

struct ReportOf {
  const Context& context;

  Report operator()(const DrawShowOptions& options) const {
    return draw_report(ArchiveSession::for_reading(context.options.database), options);
  }
  Report operator()(const DrawSaveOptions& options) const { return save(options, context); }
  Report operator()(const DrawDeleteOptions& options) const { return erase(options, context); }
};

}  // namespace

ExitCode run_draw(const DrawOptions& options, const Context& context) {
  write_report(context.out, std::visit(ReportOf{context}, options), context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
