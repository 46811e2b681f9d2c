#pragma once  // installed

#include <string>

#include "automation/variant.h"
#include "vestara/foundation/date_order.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"

namespace vestara {

/// The period that distances are taken from, and the way through it.
struct DistancePeriod {
  DateBound from;
  DateBound to;
  DateOrder order = DateOrder::newest_first;
};

enum class NationalWheel : bool { included, left_out };

/// The complete draws of some wheels: wheel and five numbers.
VESTARA_API std::string wheel_draws_statement(const DistancePeriod& period, const WheelFilter& wheels);
/// The complete draws of all wheels: five numbers and date.
VESTARA_API std::string all_draws_statement(const DistancePeriod& period, NationalWheel national);

}  // namespace vestara
