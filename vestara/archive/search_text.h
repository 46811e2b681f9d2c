#pragma once

#include <cstdint>
#include <string>

#include "vestara/archive/hit_search.h"
#include "vestara/foundation/export.h"

namespace vestara {

// The two statements of a hit search. Their blanks and capitals are uneven. They are the contract's and stay as they
// are.

/// One row per archive row that matches, with its count of hits ("s2.numeriTrovati"); one per draw when all
/// draws are asked for.
VESTARA_API std::string counting_statement(const SearchQuestion& question);
/// One row per draw that holds a match: date and contest number; contest number and date when all are asked for.
VESTARA_API std::string dates_statement(const SearchQuestion& question);

}  // namespace vestara
