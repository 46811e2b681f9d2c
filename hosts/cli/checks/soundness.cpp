#include "hosts/cli/checks/soundness.h"

#include "hosts/cli/checks/schema_findings.h"
#include "hosts/cli/failure.h"

namespace vestara::host {

Findings file_findings(const ArchiveSession& session) {
  const auto lines = session.connector()->CheckFile();
  if (lines.empty()) return {};
  return {{"the archive's file is damaged", static_cast<int64_t>(lines.size()), lines.front(),
           "vestara restore FILE puts a backup in its place; without one, vestara export what can still be read and "
           "import it into a new archive"}};
}

void require_sound(const ArchiveSession& session, const std::string& name) {
  const auto lines = session.connector()->CheckFile();
  if (!lines.empty()) throw Failure(ExitCode::database, name + " is damaged, nothing was changed: " + lines.front());
  require_tables(session, name, "used");
}

void require_tables(const ArchiveSession& session, const std::string& name, const std::string& purpose) {
  if (session.has_tables()) return;
  throw Failure(ExitCode::database, "the archive " + name + " cannot be " + purpose + ": " + missing_tables(session) +
                                        "; vestara doctor says more");
}

}  // namespace vestara::host
