#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/checks/soundness.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/terminal/copy_progress.h"
#include "hosts/cli/terminal/interruption.h"

namespace vestara::host {
namespace {

Report summary(const CopyOptions& options, const std::vector<CopiedTable>& tables) {
  Report report;
  report.facts = {{"result", "copied"}, {"from", shown_url(options.from)}, {"to", shown_url(options.to)}};
  report.listing = "tables";
  report.row_kind = "table";
  report.columns = {"table", "rows", "result"};
  for (const CopiedTable& table : tables) report.rows.push_back({std::string(table.name), table.rows, "verified"});
  return report;
}

}  // namespace

ExitCode run_copy(const CopyOptions& options, const Context& context) {
  if (same_archive(options.from, options.to))
    throw Failure(ExitCode::usage, "--from and --to are the same archive; give two");
  const ArchiveSession from = ArchiveSession::for_reading(options.from);
  require_tables(from, shown_url(options.from), "copied from");
  const ArchiveSession to = ArchiveSession::for_import(options.to);
  require_tables(to, shown_url(options.to), "copied to");
  const Interruption interruption;
  const auto tables = copy_archive(from, to, options.held, context.err);
  // The next rows get keys behind those that were copied.
  if (!to.connector()->CreateSchema()) to.fail("the copy is complete, but new rows may not get keys of their own");
  write_report(context.out, summary(options, tables), context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
