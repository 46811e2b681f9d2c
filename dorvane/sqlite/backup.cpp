#include "dorvane/backup.h"

#include "automation/error.h"
#include "dorvane/sqlite/errors.h"
#include "dorvane/sqlite/handles.h"
#include "dorvane/url.h"

namespace dorvane {
namespace {

using sqlite::Database;
using sqlite::require_ok;

Database open_file(const std::string& path, int flags) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  Database database(opened);
  require_ok(code, opened);
  return database;
}

}  // namespace

void back_up(const std::string& url, const std::string& file) {
  constexpr int all_pages = -1;
  const Url parsed = parse_url(url);
  if (parsed.scheme != "sqlite" || parsed.location == ":memory:")
    throw automation::invalid_call("only an archive that is a file can be copied as one");
  const Database source =
      open_file(parsed.location, parsed.option("mode", "rw") == "ro" ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
  sqlite3_busy_timeout(source.get(), milliseconds(parsed, "timeout", "5000"));
  const Database target = open_file(file, SQLITE_OPEN_READWRITE);
  // In one step, so that the pages belong together.
  sqlite3_backup* const backup = sqlite3_backup_init(target.get(), "main", source.get(), "main");
  if (!backup) throw sqlite::last_failure(target.get());
  sqlite3_backup_step(backup, all_pages);
  require_ok(sqlite3_backup_finish(backup), target.get());
  // The pages say that changes go to a log beside the file; a backup has none.
  require_ok(sqlite3_exec(target.get(), "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr), target.get());
}

}  // namespace dorvane
