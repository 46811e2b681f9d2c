#pragma once

#include <string>
#include <string_view>

#include "vestara/keeping/archive.h"

namespace vestara::host {

/// The archive that a command works on, opened by its URL. Failures name the command that helps.
class ArchiveSession : public Archive {
 public:
  /// Opens an archive that exists; a missing file is named together with the command that makes one.
  static ArchiveSession for_reading(const std::string& database);
  /// Opens the archive or begins a new one, with its tables; the user's own with its folder.
  static ArchiveSession for_import(const std::string& database);
  /// A new, empty one that lives as long as the session.
  static ArchiveSession in_memory();
  /// False only when the URL names a file and that file is missing.
  static bool may_exist(const std::string& database);

 private:
  explicit ArchiveSession(const std::string& url);
};

}  // namespace vestara::host
