#pragma once

#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "automation/error.h"
#include "vestara/foundation/error_log.h"

namespace vestara {

namespace detail {
inline void log_trapped(std::string_view label, const automation::RunTimeError& error) noexcept {
  std::string entry(label);
  WriteErrLog(entry, error);
}
}  // namespace detail

/// Runs `body` and returns what it returns. An error ends it: one entry goes to the error log under `label`, and the
/// caller gets `on_failure`. What the body did before stays done. Members catch by the traps of this file alone.
/// Besides them only the error log catches: it must not fail where it reports a failure.
template <class Result, class Body>
Result trapped(std::string_view label, Result on_failure, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const automation::RunTimeError& error) {
    detail::log_trapped(label, error);
  } catch (const std::bad_alloc&) {
    detail::log_trapped(label, automation::out_of_memory());
  } catch (const std::exception& error) {
    detail::log_trapped(label, automation::failure(automation::FailureKind::unspecified, error.what()));
  }
  return on_failure;
}

/// The same for a member without a result.
template <class Body>
void trapped(std::string_view label, Body&& body) {
  trapped(label, 0, [&] {
    std::forward<Body>(body)();
    return 0;
  });
}

/// A trap that writes no entry, for the few members that only forward one statement.
template <class Result, class Body>
Result quietly(Result on_failure, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const std::exception&) {
    return on_failure;
  }
}

/// A failure that came without an error of its own, such as a refused insert: logged with number 0 and no text.
inline automation::RunTimeError refused() { return {0, ""}; }

}  // namespace vestara
