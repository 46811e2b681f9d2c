#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"
#include "vestara/foundation/date_order.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// Which hits the gaps lie between.
struct GapQuestion {
  std::string_view numbers;                   ///< as they go into the IN lists
  int16_t least_hits;                         ///< numbers that a row must hold
  std::vector<std::string_view> wheel_items;  ///< quoted aliases; none means no wheel condition
  const automation::Variant& from;
  const automation::Variant& to;
  DateOrder order;
};

/// One row per draw of the period and hit on its date: the draw's date, then date, wheel, contest number and count
/// of hits ("numeriTrovati") of the hit, all Null where the date had none. Blanks and capitals are uneven; they are
/// part of the text and stay as they are.
VESTARA_API std::string gap_statement(const GapQuestion& question);

}  // namespace vestara
