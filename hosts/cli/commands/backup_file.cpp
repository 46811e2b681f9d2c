#include "hosts/cli/commands/backup_file.h"

#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/failure.h"

namespace vestara::host {

void require_other_archive(const std::string& file, const std::string& url) {
  if (same_archive(sqlite_url(file), url))
    throw Failure(FailureKind::argument, file + " is the archive itself; name another file");
}

Report backup_report(const std::string& result, const std::string& url, const std::string& file) {
  Report report;
  report.facts = {{"result", result}, {"archive", shown_url(url)}, {"file", file}};
  report.listing = "tables";
  report.row_kind = "table";
  report.columns = {"table", "rows"};
  return report;
}

}  // namespace vestara::host
