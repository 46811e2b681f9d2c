#pragma once

#include <string>

#include "automation/error.h"
#include "hosts/cli/archive/archive_session.h"

namespace vestara::host {

/// Ends the command when a typed function raised, with what it was for: "the delays cannot be counted". The reason is
/// the connector's last failure where there is one, else the error goes to the log, and the message names the log.
[[noreturn]] void fail_answer(const ArchiveSession& session, const std::string& what,
                              const automation::RunTimeError& error);

/// What a typed function answers; `what` as above.
template <class Load>
auto answer(const ArchiveSession& session, const std::string& what, Load load) {
  try {
    return load(*session.connector());
  } catch (const automation::RunTimeError& error) {
    fail_answer(session, what, error);
  }
}

}  // namespace vestara::host
