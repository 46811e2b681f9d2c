#pragma once

#include "hosts/cli/archive/archive_session.h"
#include "vestara/draws/draw_range.h"

namespace vestara::host {

/// An archive in memory that holds the wheels of another one and its draws of a range, in the order of their keys: for
/// members of the library that ask for everything since a day. Failure (database).
ArchiveSession archive_excerpt(const ArchiveSession& session, const DrawRange& range);

}  // namespace vestara::host
