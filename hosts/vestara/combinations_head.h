#pragma once

#include "hosts/vestara/exact_count.h"
#include "hosts/vestara/option_values.h"

namespace vestara::host {

ExactCount combination_count(const NumberList& numbers, int32_t size);

enum class Listing : bool { absent, follows };
/// How many combinations there are, and the columns of their listing.
Report combinations_head(const NumberList& numbers, int32_t size, Listing listing);

}  // namespace vestara::host
