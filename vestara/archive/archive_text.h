#pragma once

#include <string>

#include "automation/variant.h"

namespace vestara {

/// Which draw dates to count. A bound that is missing, Null, Empty or "" is no bound.
struct DrawCountQuestion {
  const automation::Variant& from;
  const automation::Variant& to;
  int32_t wheel;  ///< 1..11, or `all_wheels`
};

/// One row per draw date that holds a number. Error 9 for a wheel outside 1..12.
std::string draw_count_statement(const DrawCountQuestion& question);

/// The newest date as "dmax", the oldest as "dmin".
std::string newest_date_statement();
std::string oldest_date_statement();

}  // namespace vestara
