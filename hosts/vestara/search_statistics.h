#pragma once

#include "hosts/vestara/archive_session.h"
#include "hosts/vestara/options.h"
#include "hosts/vestara/output.h"
#include "vestara/statistics/statistics.h"

namespace vestara::host {

/// What a search amounts to: what chance would have given in the draws of the archive, each with the wheels that were
/// drawn in it, and what they gave; the gaps; last the library's own figures, under names that say so. A note says
/// where those differ in kind.
FactBlock statistics_block(const ArchiveSession& session, const SearchOptions& question, cStatistiche& statistics);

}  // namespace vestara::host
