#pragma once

#include <string>

#include "hosts/cli/archive/archive_session.h"

namespace vestara::host {

/// Ends the command when the library could not work, with what it was for: "the delays cannot be counted". The reason
/// is the connector's own, or the error log that has it. The library itself answers with empty values then.
void require(bool worked, const ArchiveSession& session, const std::string& otherwise);

}  // namespace vestara::host
