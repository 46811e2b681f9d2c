#pragma once

#include <string>

#include "hosts/cli/output/output.h"

// What `vestara backup` and `vestara restore` share.

namespace vestara::host {

/// Failure (usage) when the file of the backup is the archive itself.
void require_other_archive(const std::string& file, const std::string& url);

/// What was done with the archive and the file; a row for each table is still to come.
Report backup_report(const std::string& result, const std::string& url, const std::string& file);

}  // namespace vestara::host
