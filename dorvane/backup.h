#pragma once  // for hosts

#include <string>

#include "dorvane/export.h"

namespace dorvane {

/// Writes a copy of the embedded database's archive that a URL names, as it is at one moment whoever changes it
/// meanwhile, into a file: an empty one, which afterwards needs no other file beside it. The URL's `timeout` holds.
/// Raises RunTimeError, also for URLs of servers, which keep no file of the client's; the file is then of no use.
DORVANE_API void back_up(const std::string& url, const std::string& file);

}  // namespace dorvane
