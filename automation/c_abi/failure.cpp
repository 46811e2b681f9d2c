#include "automation/c_abi/failure.h"

#include <string>

namespace automation::c_abi {
namespace {

struct Failure {
  int32_t number = 0;
  std::string description;
  std::string source;
};

Failure& last() {
  thread_local Failure failure;
  return failure;
}

}  // namespace

au_status keep_failure(au_status status, const RunTimeError& error) noexcept {
  try {
    last() = {error.number(), error.description(), error.source()};
  } catch (const std::exception&) {
    last().number = error.number();
  }
  return status;
}

RunTimeError kept_failure() {
  if (last().number == 0) return {unspecified_failure, "the host's object failed without saying why"};
  return {last().number, last().description, last().source};
}

void forget_failure() noexcept {
  last().number = 0;
  last().description.clear();
  last().source.clear();
}

}  // namespace automation::c_abi

using automation::c_abi::last;

au_error au_last_error(void) {
  const auto& failure = last();
  return {failure.number, failure.description.c_str(), failure.source.c_str()};
}

void au_raise(int32_t number, const char* description, const char* source) {
  // Without memory for the texts the error is 7.
  automation::c_abi::guarded([&] {
    automation::c_abi::keep_failure(
        AU_RAISED, automation::RunTimeError(number, description ? description : "", source ? source : ""));
  });
}
