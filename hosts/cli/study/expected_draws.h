#pragma once

#include "hosts/cli/output/output.h"

namespace vestara::host {

/// Expected draws for one hit, as cStatistiche counts them: what is not above 0 is never.
inline Cell expected_draws(double draws) { return draws > 0 ? Cell(draws) : Cell(Absent{"never"}); }

}  // namespace vestara::host
