#pragma once

#include <exception>
#include <new>
#include <utility>

#include "automation/c_abi/automation.h"
#include "automation/error.h"

namespace automation::c_abi {

/// Raised for what is not a run-time error of a member: AU_BAD_ARGUMENT, AU_BAD_HANDLE, AU_BAD_VERSION.
struct Misuse {
  au_status status;
  const char* reason;
};

/// Keeps a failure of this thread for au_last_error and returns its status.
au_status keep_failure(au_status status, const RunTimeError& error) noexcept;
/// The error that a callback kept with au_raise, as the exception that it stands for.
RunTimeError kept_failure();
void forget_failure() noexcept;

/// Runs a body; no error leaves this function.
template <class Body>
au_status guarded(Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
    return AU_OK;
  } catch (const Misuse& misuse) {
    return keep_failure(misuse.status, invalid_call(misuse.reason));
  } catch (const RunTimeError& error) {
    return keep_failure(AU_RAISED, error);
  } catch (const std::bad_alloc&) {
    return keep_failure(AU_RAISED, out_of_memory());
  } catch (const std::exception& error) {
    return keep_failure(AU_RAISED, failure(FailureKind::unspecified, error.what()));
  } catch (...) {
    return keep_failure(AU_RAISED, RunTimeError(unspecified_failure));
  }
}

template <class T>
T& required(T* pointer) {
  if (!pointer) throw Misuse{AU_BAD_ARGUMENT, "a pointer is null that must not be"};
  return *pointer;
}

}  // namespace automation::c_abi
