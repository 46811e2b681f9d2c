#pragma once

#include "vestara/foundation/failure.h"

namespace vestara::host {

/// What the program tells its caller.
enum class ExitCode : int {
  ok = 0,
  nothing_found = 1,
  raised = 1,  ///< the member that was called raised a run-time error
  usage = 2,
  database = 3,
  file = 4,  ///< one that cannot be read, written or understood
  interrupted = 130,
};

/// What a command that ended with a failure of this kind tells the caller.
constexpr ExitCode exit_code(FailureKind kind) {
  switch (kind) {
    case FailureKind::argument:
      return ExitCode::usage;
    case FailureKind::nothing_found:
      return ExitCode::nothing_found;
    case FailureKind::file:
      return ExitCode::file;
    case FailureKind::interrupted:
      return ExitCode::interrupted;
    case FailureKind::unspecified:
    case FailureKind::database:
      break;
  }
  return ExitCode::database;
}

}  // namespace vestara::host
