#pragma once  // installed

#include <cstdint>
#include <string>

#include "automation/variant.h"
#include "vestara/foundation/date_order.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"

namespace vestara {

/// Which hits the gaps lie between.
struct GapQuestion {
  std::string numbers;     ///< "5,12", as they go into the IN lists
  int16_t least_hits = 1;  ///< numbers that a row must hold
  DrawSelection draws;     ///< the period of the gaps, and the wheels that hits count on
  DateOrder order = DateOrder::newest_first;
};

/// One row per draw of the period and hit on its date: the draw's date, then date, wheel, contest number and count
/// of hits ("numeriTrovati") of the hit, all Null where the date had none. Blanks and capitals are uneven; they are
/// part of the text and stay as they are.
VESTARA_API std::string gap_statement(const GapQuestion& question);

}  // namespace vestara
