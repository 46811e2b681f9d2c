#pragma once

#include "hosts/vestara/archive_session.h"
#include "hosts/vestara/options.h"
#include "hosts/vestara/output.h"
#include "vestara/statistics/statistics.h"

namespace vestara::host {

/// What a search amounts to, as the library counts it, and beside it the plain figures: for the wheels that were
/// searched and the draws in which one of them took part. A note says where the two differ.
FactBlock statistics_block(const ArchiveSession& session, const SearchOptions& question, cStatistiche& statistics);

}  // namespace vestara::host
