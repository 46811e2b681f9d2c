#include "hosts/cli/checks/soundness.h"

#include "hosts/cli/checks/schema_findings.h"
#include "hosts/cli/failure.h"

namespace vestara::host {

Findings file_findings(const Archive& archive) {
  const auto lines = archive.connector()->CheckFile();
  if (lines.empty()) return {};
  return {{"the archive's file is damaged", static_cast<int64_t>(lines.size()), lines.front(),
           "vestara restore FILE puts a backup in its place; without one, vestara export what can still be read and "
           "import it into a new archive"}};
}

void require_sound(const Archive& archive, const std::string& name) {
  const auto lines = archive.connector()->CheckFile();
  if (!lines.empty()) throw Failure(FailureKind::database, name + " is damaged, nothing was changed: " + lines.front());
  require_tables(archive, name, "used");
}

void require_tables(const Archive& archive, const std::string& name, const std::string& purpose) {
  if (archive.has_tables()) return;
  throw Failure(FailureKind::database, "the archive " + name + " cannot be " + purpose + ": " +
                                           missing_tables(archive) + "; vestara doctor says more");
}

}  // namespace vestara::host
