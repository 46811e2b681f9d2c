#pragma once  // installed

#include <cstdint>
#include <string>

#include "automation/variant.h"
#include "vestara/foundation/date_order.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"

namespace vestara {

enum class DrawChoice : bool { hits, all_draws };

/// What a hit search asks for.
struct SearchQuestion {
  std::string numbers;      ///< "5,12", as they go into the IN lists
  int16_t least_hits = 1;   ///< numbers that a row must hold
  DrawSelection selection;  ///< the wheels are not looked at when all draws are asked for
  DrawChoice draws = DrawChoice::hits;
  DateOrder order = DateOrder::newest_first;
};

// Blanks and capitals of the two statements are uneven; they are part of the texts and stay as they are.

/// One row per archive row that matches, with its count of hits ("s2.numeriTrovati"); one per draw when all
/// draws are asked for.
VESTARA_API std::string counting_statement(const SearchQuestion& question);
/// One row per draw that holds a match: date and contest number; contest number and date when all are asked for.
VESTARA_API std::string dates_statement(const SearchQuestion& question);

}  // namespace vestara
