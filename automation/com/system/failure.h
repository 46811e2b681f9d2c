#pragma once

#include "automation/com/system/platform.h"
#include "automation/error.h"

namespace automation::com {

/// How a run-time error looks to a host: scripts see its number in Err.Number, all hosts its text and its source
/// (`object` unless the error names another). Also becomes the thread's error object. Returns what the call returns.
HRESULT report(const RunTimeError& error, std::string_view object, EXCEPINFO* info) noexcept;

/// The error that a call of a host's object stands for. Takes over what `info` holds.
RunTimeError failure_of(HRESULT result, EXCEPINFO& info);

/// Runs a body that may throw. No error leaves this function: it returns E_OUTOFMEMORY or E_FAIL instead.
template <class Body>
HRESULT guarded(Body&& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace automation::com
