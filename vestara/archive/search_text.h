#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"
#include "vestara/foundation/date_order.h"
#include "vestara/foundation/export.h"

namespace vestara {

enum class DrawChoice : bool { hits, all_draws };

/// What a hit search asks for.
struct SearchQuestion {
  std::string_view numbers;                   ///< as they go into the IN lists
  int16_t least_hits;                         ///< numbers that a row must hold
  std::vector<std::string_view> wheel_items;  ///< quoted aliases; none means no wheel condition
  const automation::Variant& from;
  const automation::Variant& to;
  DrawChoice draws;
  DateOrder order;
};

// Blanks and capitals of the two statements are uneven; they are part of the texts and stay as they are.

/// One row per archive row that matches, with its count of hits ("s2.numeriTrovati"); one per draw when all
/// draws are asked for.
VESTARA_API std::string counting_statement(const SearchQuestion& question);
/// One row per draw that holds a match: date and contest number; contest number and date when all are asked for.
VESTARA_API std::string dates_statement(const SearchQuestion& question);

}  // namespace vestara
