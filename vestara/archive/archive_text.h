#pragma once

#include <cstdint>
#include <string>

#include "automation/variant.h"
#include "vestara/archive/hit_search.h"

namespace vestara {

/// The bound that a host gives for a count: the empty text and Empty are none here, unlike in the searches.
DateBound bound_of_count(const automation::Variant& bound);

/// One row per draw date that holds a number. Error 9 for a wheel outside 1..12.
std::string draw_count_statement(const DrawCountQuestion& question);

/// The newest date as "dmax", the oldest as "dmin".
std::string newest_date_statement();
std::string oldest_date_statement();

}  // namespace vestara
