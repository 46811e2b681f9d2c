#include "hosts/vestara/archive_change.h"
#include "hosts/vestara/archive_import.h"
#include "hosts/vestara/commands.h"
#include "hosts/vestara/file_source.h"
#include "hosts/vestara/shown_text.h"

namespace vestara::host {
namespace {

Cell number(size_t count) { return static_cast<int64_t>(count); }

Report summary(const DrawFile& file, const ArchiveChange& change, const std::string& result) {
  const CollectedDraws& draws = file.draws;
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
  return report;
}

/// What an import would change; an archive that is not there yet holds nothing.
ArchiveChange change_to_come(const std::string& database, const std::vector<DrawRow>& rows) {
  if (!ArchiveSession::may_exist(database)) return compare_draws({}, rows);
  const ArchiveSession session = ArchiveSession::for_reading(database);
  return session.has_tables() ? compare_archive(session, rows) : compare_draws({}, rows);
}

}  // namespace

ExitCode run_import(const ImportOptions& options, const Context& context) {
  const std::string name = source_name(options.file);
  const DrawFile file = parse_draw_file(read_source(options.file), name);
  refuse_rejected(file, name);
  const std::string& database = context.options.database;
  if (options.dry_run) {
    const ArchiveChange change = change_to_come(database, file.draws.rows);
    write_report(context.out, summary(file, change, "checked, nothing changed"), context.style());
    warn_of_gone(context.err, change, "would go");
    return ExitCode::ok;
  }
  const ArchiveSession session = ArchiveSession::for_import(database);
  const ArchiveChange change = replace_archive(session, file.draws.rows, context.err);
  write_report(context.out, summary(file, change, "imported"), context.style());
  warn_of_gone(context.err, change, "went");
  return ExitCode::ok;
}

}  // namespace vestara::host
