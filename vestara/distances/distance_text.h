#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"
#include "vestara/foundation/date_order.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// The period that distances are taken from.
struct DistancePeriod {
  const automation::Variant& from;
  const automation::Variant& to;
  DateOrder order;
};

enum class NationalWheel : bool { included, left_out };

/// The complete draws of some wheels (quoted aliases; none means all): wheel and five numbers.
VESTARA_API std::string wheel_draws_statement(const DistancePeriod& period,
                                              const std::vector<std::string_view>& wheel_items);
/// The complete draws of all wheels: five numbers and date.
VESTARA_API std::string all_draws_statement(const DistancePeriod& period, NationalWheel national);

}  // namespace vestara
