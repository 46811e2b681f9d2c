#include <filesystem>
#include <system_error>

#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/checks/soundness.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/backup_file.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/terminal/copy_progress.h"
#include "hosts/cli/terminal/interruption.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/copy/table_reader.h"

namespace vestara::host {
namespace {

struct RestoreOptions {
  std::string file;
  Consent consent = Consent::ask;  ///< to replace what the archive holds
};

void add_restore(CLI::App& app, RestoreOptions& options) {
  argument(app, "FILE", options.file, "a file of vestara backup, or another archive")->required();
  add_yes(app, options.consent, "replace without asking");
}

ArchiveSession open_backup(const std::string& file) {
  std::error_code unreachable;
  if (!std::filesystem::is_regular_file(file, unreachable))
    throw Failure(FailureKind::file, file + " is no file; name one that vestara backup FILE wrote");
  ArchiveSession backup = ArchiveSession::for_reading(sqlite_url(file) + "?mode=ro");
  require_sound(backup, file);
  return backup;
}

void ask_before_replacing(const ArchiveSession& archive, const std::string& url, const RestoreOptions& options,
                          const Context& context) {
  int64_t rows = 0;
  for (const ArchiveTable& table : archive_tables())
    if (table.name != "ruote") rows += row_count(archive, table);
  if (rows == 0) return;
  context.require_consent(options.consent, "replace the " + counted(static_cast<size_t>(rows), "row") + " of " +
                                               shown_url(url) + " by those of " + options.file);
}

ExitCode run_restore(const RestoreOptions& options, const Context& context) {
  const std::string url = context.url();
  const ArchiveSession backup = open_backup(options.file);
  require_other_archive(options.file, url);
  const ArchiveSession archive = context.open_or_begin_archive();
  require_tables(archive, shown_url(url), "restored");
  ask_before_replacing(archive, url, options, context);
  const Interruption interruption;
  const auto tables = copy_archive(backup, archive, HeldRows::replace, context.err);
  // The next rows get keys behind those that came back.
  if (!archive.connector()->CreateSchema())
    archive.fail("everything is restored, but new rows may not get keys of their own");
  Report report = backup_report("restored", url, options.file);
  for (const CopiedTable& table : tables) report.rows.push_back({std::string(table.name), table.rows});
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command restore_command{
    "restore", Group::archive, "Make the archive hold what a backup holds",
    "vestara restore 2026-11-22.sqlite --yes\n\n"
    "The file is checked first. Everything is replaced at once or not at all, and compared;\n"
    "others may read meanwhile. Any archive file will do, and any engine behind --db.",
    bound<add_restore, run_restore>};

}  // namespace vestara::host
