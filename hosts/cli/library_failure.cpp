#include "hosts/cli/library_failure.h"

#include "hosts/cli/failure.h"
#include "vestara/foundation/error_log.h"

namespace vestara::host {

void require(bool worked, const ArchiveSession& session, const std::string& otherwise) {
  if (!session.connector()->LastError().empty()) session.fail("the archive cannot be read");
  if (worked) return;
  throw Failure(ExitCode::database,
                otherwise + ": a draw has a wheel or a number that there is not; " + log_path() + " names the error");
}

}  // namespace vestara::host
