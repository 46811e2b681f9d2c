#pragma once

#include <string>

#include "vestara/distances/distance_lists.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// The complete draws of some wheels: wheel and five numbers.
VESTARA_API std::string wheel_draws_statement(const DistancePeriod& period, const WheelFilter& wheels);
/// The complete draws of all wheels: five numbers and date.
VESTARA_API std::string all_draws_statement(const DistancePeriod& period, NationalWheel national);

}  // namespace vestara
