#pragma once

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/output/output.h"
#include "vestara/archive/hit_search.h"
#include "vestara/draws/draw_range.h"

namespace vestara::host {

/// What a search amounts to: what chance would have given in the draws of the archive, each with the wheels that were
/// drawn in it, and what they gave; the gaps; the library's own figures; last what chance would give if every wheel of
/// the search were drawn each time. Programs read the names: none goes, and none gets another meaning. A note says
/// where the library's figures differ in kind.
FactBlock statistics_block(const ArchiveSession& session, const DrawRange& range, const SearchQuestion& question,
                           const Hits& hits);

}  // namespace vestara::host
