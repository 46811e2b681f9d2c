#pragma once

#include "vestara/distances/distance_lists.h"

namespace vestara {

// A distance counts draws from one appearance to the next: 1 for neighbours. The first one of a list counts the draws
// of the period before. Both walks yield to the host after each row. An error (9 for a number or a wheel that does not
// exist) ends them, and what was recorded before stays.

/// Every wheel counts its own draws, from 0. One group of lists a wheel.
void walk_wheels(RecordSet& rows, Recorded recorded, DistanceLists& lists);
/// One count of dates for all wheels, from 1, which is the contract's: a first distance is one larger than above. One
/// group.
void walk_dates(RecordSet& rows, Recorded recorded, DistanceLists& lists);

}  // namespace vestara
