#pragma once

#include <ostream>
#include <vector>

#include "vestara/keeping/copy/archive_copy.h"

namespace vestara::host {

/// Copies an archive and shows a bar on a terminal. Where an Interruption lives, Ctrl-C ends the copy by a Failure
/// (interrupted).
std::vector<CopiedTable> copy_archive(const Archive& from, const Archive& to, HeldRows held, std::ostream& err);

}  // namespace vestara::host
