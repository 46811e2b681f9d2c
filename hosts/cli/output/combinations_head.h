#pragma once

#include "hosts/cli/options/option_values.h"
#include "hosts/cli/study/exact_count.h"

namespace vestara::host {

ExactCount combination_count(const NumberList& numbers, int32_t size);

enum class Listing : bool { absent, follows };
/// How many combinations there are, and the columns of their listing.
Report combinations_head(const NumberList& numbers, int32_t size, Listing listing);

}  // namespace vestara::host
