#pragma once

#include <string>
#include <string_view>

#include "automation/ref.h"
#include "dorvane/connector.h"
#include "vestara/foundation/connector.h"
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

  const automation::Ref<dorvane::DbConnector>& connector() const { return connector_; }

 private:
  explicit ArchiveSession(const std::string& url);
  ArchiveSession(const std::string& url, automation::Ref<dorvane::DbConnector> connector);

  automation::Ref<dorvane::DbConnector> connector_;
};

}  // namespace vestara::host
