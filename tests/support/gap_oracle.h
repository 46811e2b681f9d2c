#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/date.h"
#include "automation/variant.h"
#include "tests/support/random_archive.h"

// The gaps between hits, computed the slow and obvious way: list the draws, join each with the hits of its date,
// walk the lines with a counter.

namespace testing_support {

struct GapQuery {
  std::vector<int32_t> numbers;
  int32_t least_hits = 0;
  std::vector<std::string> wheels;
  std::optional<automation::Date> from, to;
  bool all_draws = false;
  bool all_wheels = false;
  bool ascending = false;
};

struct GapItem {
  int32_t draws = 0;
  automation::Variant earlier, later, days;
  std::string wheel;
  automation::Variant hits, contest;
  bool operator==(const GapItem&) const = default;
};

struct GapFigures {
  float mean_draws = 0, mean_days = 0;
  int32_t least_draws = 0, most_draws = 0, least_days = 0, most_days = 0;
  bool operator==(const GapFigures&) const = default;
};

/// Several hits of one date and wheel have no order of their own: they come by contest, then by hits.
std::vector<GapItem> gaps_of(const Archive& archive, const GapQuery& query);
/// Of a list that has items.
GapFigures figures_of(const std::vector<GapItem>& items);

/// How failed expectations show them.
void PrintTo(const GapItem& item, std::ostream* out);
void PrintTo(const GapFigures& figures, std::ostream* out);

}  // namespace testing_support
