#include "hosts/cli/library_failure.h"

#include "hosts/cli/failure.h"
#include "vestara/foundation/error_log.h"

namespace vestara::host {

void fail_answer(const ArchiveSession& session, const std::string& what, const automation::RunTimeError& error) {
  if (!session.connector()->LastError().empty()) session.fail("the archive cannot be read");
  std::string entry = "vestara: " + what;
  WriteErrLog(entry, error);
  throw Failure(FailureKind::database,
                what + ": a draw has a wheel or a number that there is not; " + log_path() + " names the error");
}

}  // namespace vestara::host
