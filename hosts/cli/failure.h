#pragma once

#include <string>

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

/// The exit code of a failure.
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

/// Ends a command with an exit code, which is that of a kind of failure.
class Failure : public vestara::Failure {
 public:
  Failure(ExitCode code, const std::string& text) : vestara::Failure(kind_of(code), text) {}

 private:
  static constexpr FailureKind kind_of(ExitCode code) {
    switch (code) {
      case ExitCode::usage:
        return FailureKind::argument;
      case ExitCode::nothing_found:
        return FailureKind::nothing_found;
      case ExitCode::file:
        return FailureKind::file;
      case ExitCode::interrupted:
        return FailureKind::interrupted;
      default:
        return FailureKind::database;
    }
  }
};

}  // namespace vestara::host
