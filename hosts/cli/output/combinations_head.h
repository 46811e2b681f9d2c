#pragma once

#include "hosts/cli/output/output.h"
#include "vestara/study/chance/exact_count.h"

namespace vestara::host {

/// The ways to choose `size` of so many numbers.
ExactCount combination_count(size_t numbers, int32_t size);

enum class Listing : bool { absent, follows };
/// How many combinations there are, and the columns of their listing.
Report combinations_head(size_t numbers, int32_t size, Listing listing);

}  // namespace vestara::host
