#pragma once  // installed

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/date.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"
#include "vestara/foundation/wheel_grid.h"

// The hit search as functions for C++ hosts and the command line. Each call gives a whole answer or raises: a failure
// of kind database when the connector refused a statement, what the connector raises, and the errors named below.
//
// LoadLottoEstr of cLotto is the same search for hosts that call by name. It makes the same question, but runs the two
// statements itself: it hands the rows of the second one to its host.

namespace vestara {

enum class DrawChoice : bool { hits, all_draws };

/// What a hit search asks for.
struct SearchQuestion {
  std::string numbers;      ///< "5,12", as the statement's IN lists take them
  int16_t least_hits = 1;   ///< numbers that a row must hold
  DrawSelection selection;  ///< the wheels are not looked at when all draws are asked for
  DrawChoice draws = DrawChoice::hits;
  DateOrder order = DateOrder::newest_first;
};

/// How often each kind of combination came out. A row with k hits holds (k over j) combinations of j numbers.
struct HitCounters {
  int32_t ambate = 0;
  int32_t ambi = 0;
  int32_t terni = 0;
  int32_t quaterne = 0;
  int32_t cinquine = 0;
  bool operator==(const HitCounters&) const = default;
};

/// What the rows of a search amount to.
struct HitCount {
  int32_t rows = 0;  ///< archive rows that matched; draws, when all draws were asked for
  HitCounters combinations;
};

/// A draw that holds a hit. Archives of other programs may lack either value.
struct HitDate {
  std::optional<automation::Date> date;
  std::optional<int32_t> contest;
};

struct Hits {
  HitCount count;
  std::vector<HitDate> dates;  ///< in the order of the question, one for each draw
};

/// Runs two statements (search_text.h): one gives the rows, the other their draws. Errors 9 and 94 for a row whose
/// count of hits makes no sense, 6 for more combinations than 32 bits count.
VESTARA_API Hits find_hits(DbConnector& connector, const SearchQuestion& question);

/// Which draw dates to count.
struct DrawCountQuestion {
  DateBound from;
  DateBound to;
  int32_t wheel = all_wheels;  ///< 1..11, or `all_wheels`
};

/// Draw dates of a period that hold a number, on one wheel or on any. Error 9 for a wheel outside 1..12.
VESTARA_API int32_t count_draws(DbConnector& connector, const DrawCountQuestion& question);
/// The same for a class: False for a refused statement, which leaves `into` as it is.
bool count_draws(DbConnector& connector, const DrawCountQuestion& question, int32_t& into);

}  // namespace vestara
