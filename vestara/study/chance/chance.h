#pragma once  // for hosts

#include <cstddef>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/study/chance/histogram.h"

// What chance alone does, draw by draw without a memory.

namespace vestara {

/// The chance that a number (1), or both of a pair (2), come out in a draw of `wheels` wheels on one at least of them.
/// A fraction of a wheel counts: dates of an archive have not always the same wheels.
VESTARA_API double appearance_chance(size_t numbers, double wheels);

/// How many of the distances in a histogram would lie in each class when an appearance has this chance in every draw.
VESTARA_API std::vector<double> expected_counts(const Histogram& histogram, double chance);

}  // namespace vestara
