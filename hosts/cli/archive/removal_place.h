#pragma once

#include <string>

#include "vestara/keeping/import/removed_rows.h"

namespace vestara::host {

/// Where what a command removes is kept: beside the archive's file; for an archive that is no file, in the folder of
/// the user's own archive. Failure (usage) when the environment does not name that.
RemovalPlace removal_place(const std::string& url);

}  // namespace vestara::host
