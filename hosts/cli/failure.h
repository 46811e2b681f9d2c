#pragma once

#include <stdexcept>
#include <string>

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

/// Ends a command. The text reads "what was wrong, where; what would be right"; further lines may follow it.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& text) : std::runtime_error(text), code_(code) {}
  ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace vestara::host
