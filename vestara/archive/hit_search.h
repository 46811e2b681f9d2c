#pragma once  // installed

#include <cstdint>
#include <optional>
#include <vector>

#include "automation/date.h"
#include "vestara/archive/archive_text.h"
#include "vestara/archive/hit_counters.h"
#include "vestara/archive/search_text.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

// The hit search as a function. Each call gives a whole answer or raises: a failure of kind database when the connector
// refused a statement, what the connector raises, and the errors named below.

namespace vestara {

/// A draw that holds a hit. Archives of other programs may lack either value.
struct HitDate {
  std::optional<automation::Date> date;
  std::optional<int32_t> contest;
};

struct Hits {
  HitCount count;
  std::vector<HitDate> dates;  ///< in the order of the question, one for each draw
};

/// Two statements: the rows, then their draws. Errors 9 and 94 for a row whose count of hits makes no sense, 6 for more
/// combinations than 32 bits count.
VESTARA_API Hits find_hits(DbConnector& connector, const SearchQuestion& question);

/// Draw dates of a period that hold a number, on one wheel or on any. Error 9 for a wheel outside 1..12.
VESTARA_API int32_t count_draws(DbConnector& connector, const DrawCountQuestion& question);
/// For a class that tells a refused statement from none: False for it, which leaves `into` as it is.
bool count_draws(DbConnector& connector, const DrawCountQuestion& question, int32_t& into);

}  // namespace vestara
