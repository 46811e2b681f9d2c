#include <filesystem>
#include <system_error>

#include "automation/error.h"
#include "dorvane/backup.h"
#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/checks/soundness.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/backup_file.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/output/output_file.h"
#include "hosts/cli/output/part_file.h"
#include "hosts/cli/terminal/copy_progress.h"
#include "hosts/cli/terminal/interruption.h"
#include "vestara/keeping/copy/table_reader.h"

namespace vestara::host {
namespace {

struct BackupOptions {
  std::string file;
  Consent consent = Consent::ask;  ///< to replace a file
};

void add_backup(CLI::App& app, BackupOptions& options) {
  argument(app, "FILE", options.file, "the file to write")->required();
  add_yes(app, options.consent, "replace a file without asking");
}

void copy_pages(const std::string& url, const std::string& path) {
  try {
    dorvane::back_up(url, path);
  } catch (const automation::RunTimeError& error) {
    throw Failure(FailureKind::database, "the backup could not be written: " + error.description());
  }
}

/// An archive that is a file gives its pages. What a server holds is first copied row by row into a file, and compared.
void write_backup(const ArchiveSession& archive, const std::string& url, const std::string& path, std::ostream& err) {
  if (file_of(url)) return copy_pages(url, path);
  const PartFile rows(path);
  {
    const ArchiveSession copy = ArchiveSession::for_import(sqlite_url(rows.path()));
    const Interruption interruption;
    copy_archive(archive, copy, HeldRows::replace, err);
  }
  copy_pages(sqlite_url(rows.path()), path);
}

/// The backup is read again before it gets its name.
void list_tables(const std::string& path, const std::string& url, Report& report) {
  const ArchiveSession backup = ArchiveSession::for_reading(sqlite_url(path) + "?mode=ro");
  require_sound(backup, "the backup of " + shown_url(url));
  for (const ArchiveTable& table : archive_tables())
    report.rows.push_back({std::string(table.name), row_count(backup, table)});
}

ExitCode run_backup(const BackupOptions& options, const Context& context) {
  const std::string url = context.url();
  const ArchiveSession archive = context.open_archive();
  require_tables(archive, shown_url(url), "backed up");
  require_other_archive(options.file, url);
  std::error_code unreachable;
  if (std::filesystem::exists(options.file, unreachable))
    context.require_consent(options.consent, "replace " + options.file);
  try {
    PartFile part(options.file);
    write_backup(archive, url, part.path(), context.err);
    Report report = backup_report("backed up", url, options.file);
    list_tables(part.path(), url, report);
    part.become_target();
    context.show(report);
  } catch (const std::system_error& error) {
    throw unwritable_file(options.file, error.code().value());
  }
  return ExitCode::ok;
}

}  // namespace

extern const Command backup_command{
    "backup", Group::archive, "Write the whole archive into a file, as it is at one moment",
    "vestara backup 2026-11-22.sqlite\n\n"
    "Others may read and write meanwhile. The file is an archive itself: --db sqlite:FILE reads it.",
    bound<add_backup, run_backup>};

}  // namespace vestara::host
