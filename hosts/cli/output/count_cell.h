#pragma once

#include "hosts/cli/output/output.h"
#include "vestara/study/chance/exact_count.h"

namespace vestara::host {

/// A number, or its digits as text when it does not fit in 64 bits with a sign.
Cell count_cell(ExactCount count);

}  // namespace vestara::host
