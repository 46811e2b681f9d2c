#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/checks/soundness.h"
#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/terminal/copy_progress.h"
#include "hosts/cli/terminal/interruption.h"

namespace vestara::host {
namespace {

struct CopyOptions {
  std::string from;  ///< URLs
  std::string to;
  bool replace = false;
};

void add_copy(CLI::App& app, CopyOptions& options) {
  value_option(app, "--from", options.from, "URL", "the archive that is read")->required();
  value_option(app, "--to", options.to, "URL",
               "the archive that is written; its tables are made where they are missing")
      ->required();
  app.add_flag("--replace", options.replace, "put the copy in the place of what the other archive holds");
}

Report summary(const CopyOptions& options, const std::vector<CopiedTable>& tables) {
  Report report;
  report.facts = {{"result", "copied"}, {"from", shown_url(options.from)}, {"to", shown_url(options.to)}};
  report.listing = "tables";
  report.row_kind = "table";
  report.columns = {"table", "rows", "result"};
  for (const CopiedTable& table : tables) report.rows.push_back({std::string(table.name), table.rows, "verified"});
  return report;
}

ExitCode run_copy(const CopyOptions& options, const Context& context) {
  if (same_archive(options.from, options.to))
    throw Failure(FailureKind::argument, "--from and --to are the same archive; give two");
  const ArchiveSession from = ArchiveSession::for_reading(options.from);
  require_tables(from, shown_url(options.from), "copied from");
  const ArchiveSession to = ArchiveSession::for_import(options.to);
  require_tables(to, shown_url(options.to), "copied to");
  const Interruption interruption;
  const auto tables = copy_archive(from, to, options.replace ? HeldRows::replace : HeldRows::refuse, context.err);
  // The next rows get keys behind those that were copied.
  if (!to.connector()->CreateSchema()) to.fail("the copy is complete, but new rows may not get keys of their own");
  context.show(summary(options, tables));
  return ExitCode::ok;
}

}  // namespace

extern const Command copy_command{
    "copy", Group::archive, "Make one archive hold what another holds, whatever the engines",
    "vestara copy --from sqlite:archive.sqlite --to postgresql://user@host/vestara", bound<add_copy, run_copy>};

}  // namespace vestara::host
