#include <filesystem>
#include <system_error>

#include "automation/error.h"
#include "dorvane/backup.h"
#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/checks/soundness.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/output/output_file.h"
#include "hosts/cli/output/part_file.h"
#include "hosts/cli/terminal/copy_progress.h"
#include "hosts/cli/terminal/interruption.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/copy/table_reader.h"

namespace vestara::host {
namespace {

void require_other_archive(const std::string& file, const std::string& url) {
  if (same_archive(sqlite_url(file), url))
    throw Failure(ExitCode::usage, file + " is the archive itself; name another file");
}

void copy_pages(const std::string& url, const std::string& path) {
  try {
    dorvane::back_up(url, path);
  } catch (const automation::RunTimeError& error) {
    throw Failure(ExitCode::database, "the backup could not be written: " + error.description());
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

Report report_of(const std::string& result, const std::string& url, const std::string& file) {
  Report report;
  report.facts = {{"result", result}, {"archive", shown_url(url)}, {"file", file}};
  report.listing = "tables";
  report.row_kind = "table";
  report.columns = {"table", "rows"};
  return report;
}

/// The backup is read again before it gets its name.
void list_tables(const std::string& path, const std::string& url, Report& report) {
  const ArchiveSession backup = ArchiveSession::for_reading(sqlite_url(path) + "?mode=ro");
  require_sound(backup, "the backup of " + shown_url(url));
  for (const ArchiveTable& table : archive_tables())
    report.rows.push_back({std::string(table.name), row_count(backup, table)});
}

ArchiveSession open_backup(const std::string& file) {
  std::error_code unreachable;
  if (!std::filesystem::is_regular_file(file, unreachable))
    throw Failure(ExitCode::file, file + " is no file; name one that vestara backup FILE wrote");
  ArchiveSession backup = ArchiveSession::for_reading(sqlite_url(file) + "?mode=ro");
  require_sound(backup, file);
  return backup;
}

void ask_before_replacing(const ArchiveSession& archive, const std::string& url, const RestoreOptions& options,
                          std::ostream& err) {
  int64_t rows = 0;
  for (const ArchiveTable& table : archive_tables())
    if (table.name != "ruote") rows += row_count(archive, table);
  if (rows == 0) return;
  require_consent(options.consent,
                  "replace the " + counted(static_cast<size_t>(rows), "row") + " of " + shown_url(url) +
                      " by those of " + options.file,
                  err);
}

}  // namespace

ExitCode run_backup(const BackupOptions& options, const Context& context) {
  const std::string url = archive_url(context.options.database);
  const ArchiveSession archive = ArchiveSession::for_reading(context.options.database);
  require_tables(archive, shown_url(url), "backed up");
  require_other_archive(options.file, url);
  std::error_code unreachable;
  if (std::filesystem::exists(options.file, unreachable))
    require_consent(options.consent, "replace " + options.file, context.err);
  try {
    PartFile part(options.file);
    write_backup(archive, url, part.path(), context.err);
    Report report = report_of("backed up", url, options.file);
    list_tables(part.path(), url, report);
    part.become_target();
    write_report(context.out, report, context.style());
  } catch (const std::system_error& error) {
    throw unwritable_file(options.file, error.code().value());
  }
  return ExitCode::ok;
}

ExitCode run_restore(const RestoreOptions& options, const Context& context) {
  const std::string url = archive_url(context.options.database);
  const ArchiveSession backup = open_backup(options.file);
  require_other_archive(options.file, url);
  const ArchiveSession archive = ArchiveSession::for_import(context.options.database);
  require_tables(archive, shown_url(url), "restored");
  ask_before_replacing(archive, url, options, context.err);
  const Interruption interruption;
  const auto tables = copy_archive(backup, archive, HeldRows::replace, context.err);
  // The next rows get keys behind those that came back.
  if (!archive.connector()->CreateSchema())
    archive.fail("everything is restored, but new rows may not get keys of their own");
  Report report = report_of("restored", url, options.file);
  for (const CopiedTable& table : tables) report.rows.push_back({std::string(table.name), table.rows});
  write_report(context.out, report, context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
