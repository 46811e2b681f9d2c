#pragma once  // installed

#include "vestara/distances/distance_lists.h"
#include "vestara/distances/distance_text.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/recordset.h"

namespace vestara {

enum class Recorded : bool { numbers, pairs };

// A distance counts draws from one appearance to the next: 1 for neighbours. The first one of a list counts the draws
// of the period before. Both walks yield to the host after each row; an error (9 for a number or a wheel that there is
// not) ends them, and what was recorded before stays.

/// Every wheel counts its own draws, from 0. One group of lists a wheel.
void walk_wheels(RecordSet& rows, Recorded recorded, DistanceLists& lists);
/// One count of dates for all wheels, from 1: a first distance is one larger than above, on purpose. One group.
void walk_dates(RecordSet& rows, Recorded recorded, DistanceLists& lists);

// The same, asked of the database. Each gives whole lists or raises: a failure of kind database when the connector
// refused the statement, what the walks raise, what the connector raises. The forms with `into` are for a class that
// shows what a load that failed wrote: they fill lists that were cleared, and give False when the statement was
// refused.

/// The distances on each of some wheels. Groups: `wheel_group`; places: `number_place` or `pair_place`.
VESTARA_API DistanceLists load_wheel_distances(DbConnector& connector, Recorded recorded, const WheelFilter& wheels,
                                               const DistancePeriod& period);
bool load_wheel_distances(DbConnector& connector, Recorded recorded, const WheelFilter& wheels,
                          const DistancePeriod& period, DistanceLists& into);
/// The distances over all wheels, in dates. One group, 0.
VESTARA_API DistanceLists load_date_distances(DbConnector& connector, Recorded recorded, NationalWheel national,
                                              const DistancePeriod& period);
bool load_date_distances(DbConnector& connector, Recorded recorded, NationalWheel national,
                         const DistancePeriod& period, DistanceLists& into);

}  // namespace vestara
