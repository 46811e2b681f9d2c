#pragma once  // installed

#include <cstdint>
#include <string>

#include "automation/variant.h"
#include "vestara/foundation/selection.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// Which draw dates to count.
struct DrawCountQuestion {
  DateBound from;
  DateBound to;
  int32_t wheel = all_wheels;  ///< 1..11, or `all_wheels`
};

/// The bound that a host gives for a count: the empty text and Empty are none here, unlike in the searches.
DateBound bound_of_count(const automation::Variant& bound);

/// One row per draw date that holds a number. Error 9 for a wheel outside 1..12.
std::string draw_count_statement(const DrawCountQuestion& question);

/// The newest date as "dmax", the oldest as "dmin".
std::string newest_date_statement();
std::string oldest_date_statement();

}  // namespace vestara
