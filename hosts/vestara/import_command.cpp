#include "hosts/vestara/archive_import.h"
#include "hosts/vestara/commands.h"
#include "hosts/vestara/file_source.h"
#include "hosts/vestara/manual_marks.h"
#include "hosts/vestara/shown_text.h"

namespace vestara::host {
namespace {

Cell number(size_t count) { return static_cast<int64_t>(count); }

std::string in_words(InFile in_file) {
  if (in_file == InFile::missing) return "missing";
  return in_file == InFile::equal ? "equal" : "different";
}

void list_manual(Report& report, const std::vector<ManualDraw>& manual, MissingManual missing) {
  report.listing = "manual_draws";
  report.row_kind = "manual_draw";
  report.columns = {"manual_date", "in_file", "result"};
  for (const ManualDraw& draw : manual)
    report.rows.push_back({shown_day(draw.day), in_words(draw.in_file), std::string(fate_of(draw, missing))});
}

Report summary(const DrawFile& file, const ImportPlan& plan, MissingManual missing, const std::string& result) {
  const CollectedDraws& draws = file.draws;
  const ArchiveChange& change = plan.change;
  Report report;
  report.facts = {{"result", result},
                  {"file_form", std::string(format_name(file.format))},
                  {"read", number(draws.read)},
                  {"added", number(change.added)},
                  {"repeated", number(draws.repeated)},
                  {"rejected", number(draws.rejected.size())},
                  {"first_date", shown_day(draws.rows.front().day)},
                  {"last_date", shown_day(draws.rows.back().day)},
                  {"held_before", number(change.held)},
                  {"gone", number(change.gone_rows())}};
  list_manual(report, plan.manual, missing);
  return report;
}

/// What an import would do; an archive that is not there yet holds nothing.
ImportPlan plan_to_come(const std::string& database, const std::vector<DrawRow>& rows, MissingManual missing) {
  if (!ArchiveSession::may_exist(database)) return plan_import({}, {}, rows, missing);
  const ArchiveSession session = ArchiveSession::for_reading(database);
  if (!session.has_tables()) return plan_import({}, {}, rows, missing);
  return plan_import(held_draws(session), ManualMarks(session).days(), rows, missing);
}

void warn(std::ostream& err, const ImportPlan& plan, MissingManual missing, const std::string& verb) {
  warn_of_gone(err, plan.change, verb);
  if (missing == MissingManual::lose) warn_of_lost(err, plan.manual, verb);
}

}  // namespace

ExitCode run_import(const ImportOptions& options, const Context& context) {
  const std::string name = source_name(options.file);
  const DrawFile file = parse_draw_file(read_source(options.file), name);
  refuse_rejected(file, name);
  const std::string& database = context.options.database;
  const MissingManual missing = options.missing_manual;
  if (options.dry_run) {
    const ImportPlan plan = plan_to_come(database, file.draws.rows, missing);
    write_report(context.out, summary(file, plan, missing, "checked, nothing changed"), context.style());
    warn(context.err, plan, missing, "would go");
    return ExitCode::ok;
  }
  const ArchiveSession session = ArchiveSession::for_import(database);
  const ImportPlan plan = replace_archive(session, file.draws.rows, missing, context.err);
  write_report(context.out, summary(file, plan, missing, "imported"), context.style());
  warn(context.err, plan, missing, "went");
  return ExitCode::ok;
}

}  // namespace vestara::host
