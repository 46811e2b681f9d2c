#pragma once

#include "tests/support/delay_oracle.h"

// Frequencies, computed the slow and obvious way: write down every number of every selected draw, count equal pairs,
// put them in order.

namespace testing_support {

Figures<int32_t> counts_of(const Archive& archive, const DrawQuery& query);
Figures<float> averages_of(const Archive& archive, const DrawQuery& query);

}  // namespace testing_support
