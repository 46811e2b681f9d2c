#pragma once  // installed

#include <cstdint>
#include <string>
#include <vector>

#include "automation/date.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/ranking.h"

// What the archive says of every number on every wheel, asked of the database.
//
// Each load has two forms. The first gives a whole answer or raises: a failure of kind database when the connector
// refused the statement, error 9 for a number or a wheel that does not exist, 94 for a Null number, 91 when no wheel
// tables were read, 5 for an alias that they do not have, what the connector raises. The second is for a class that
// shows what a load that failed wrote: it fills `into` as it goes, and gives False when the statement was refused. It
// writes the grid row by row, and the ranking only at the end.
//
// A load runs on the calling thread and yields to the host after each row. The wheel tables must have been read
// (PreloadRuoteAlias).

namespace vestara {

/// A figure of every number on every wheel, and the largest ones. The ranking has ninety places. What stands in unused
/// ones is said at each load.
template <class Cell>
struct Load {
  WheelGrid<Cell> grid;
  Ranking<Cell> ranking;
};

/// Draws of the wheel since the newest one that holds the number: 0 when that is the newest, -1 when it did not come
/// out. Only draws with all five numbers count. The ranking is the successive maxima that the walk met, the largest
/// first; places after them are (-1, -1, -1) when there are fewer than ten, zeros otherwise.
using Delays = Load<int16_t>;
VESTARA_API Delays load_delays(DbConnector& connector, const DrawSelection& selection,
                               PeriodBinding binding = PeriodBinding::every_wheel);
bool load_delays(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding, Delays& into);

/// How often each number came out. The ranking has one entry for each different count, the first that was met, the
/// largest count first; places after them are (-1, -1, -1). Error 6 for a count beyond 16 bits.
using Counts = Load<int16_t>;
VESTARA_API Counts load_counts(DbConnector& connector, const DrawSelection& selection,
                               PeriodBinding binding = PeriodBinding::every_wheel);
bool load_counts(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding, Counts& into);

/// How often in a hundred draws, those of all wheels of the selection together. The ranking is the ninety most frequent
/// pairs; places after them are zeros.
struct Averages : Load<float> {
  WheelGrid<int32_t> times;  ///< the counts that they are made of
};
/// Runs two statements: one for the draws, one for the counts. Further errors: 6 for more draws than 16 bits count, 11
/// for counts without draws.
VESTARA_API Averages load_averages(DbConnector& connector, const DrawSelection& selection,
                                   PeriodBinding binding = PeriodBinding::every_wheel);
bool load_averages(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding, Averages& into);

/// A draw that some numbers came out in for the last time.
struct AnalyticLine {
  automation::Date date;
  std::string numbers;  ///< in the order they were drawn, joined by "."
  int16_t delay = 0;    ///< dates of any wheel since: 0 is the newest
  std::string wheel;    ///< alias as the archive has it
  int16_t wheel_enumerator = 0;
};

/// The lines of the analytic table of the 730 days before `today`, and of what came later.
VESTARA_API std::vector<AnalyticLine> load_analytic_lines(DbConnector& connector, automation::Date today);
bool load_analytic_lines(DbConnector& connector, automation::Date today, std::vector<AnalyticLine>& into);

}  // namespace vestara
