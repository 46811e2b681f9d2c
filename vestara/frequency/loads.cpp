#include "vestara/frequency/loads.h"

#include <string>
#include <utility>

#include "automation/int16.h"
#include "vestara/foundation/query.h"
#include "vestara/frequency/analytic_scan.h"
#include "vestara/frequency/delay_scan.h"
#include "vestara/frequency/frequency_scan.h"
#include "vestara/frequency/frequency_text.h"

namespace vestara {
namespace {

constexpr int32_t table_days = 730;

/// Fills the grid as `scan` walks, and takes the ranking over once the rows are closed.
template <class Cell, class Scan>
bool load(DbConnector& connector, const std::string& statement, Load<Cell>& into, Scan scan) {
  Ranking<Cell> ranking;
  if (!walk_rows(connector, statement, [&](RecordSet& rows) { ranking = scan(rows); })) return false;
  into.ranking = std::move(ranking);
  return true;
}

}  // namespace

bool load_delays(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding, Delays& into) {
  into.grid.fill(never_drawn);
  return load(connector, delay_statement(selection, binding), into,
              [&](RecordSet& rows) { return scan_delays(rows, into.grid); });
}

bool load_counts(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding, Counts& into) {
  into.grid.fill(0);
  return load(connector, frequency_statement(selection, binding), into,
              [&](RecordSet& rows) { return scan_counts(rows, into.grid); });
}

bool load_averages(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding, Averages& into) {
  into.grid.fill(0);
  into.times.fill(0);
  int16_t draws = 0;
  const auto count_draws = [&](RecordSet& dates) {
    if (!dates.at_end()) draws = automation::Int16::checked(dates.record_count());
  };
  return walk_rows(connector, draw_dates_statement(selection, binding), count_draws) &&
         load(connector, frequency_statement(selection, binding), into,
              [&](RecordSet& rows) { return scan_averages(rows, draws, into.grid, into.times); });
}

bool load_analytic_lines(DbConnector& connector, automation::Date today, std::vector<AnalyticLine>& into) {
  const auto from = automation::Date::from_day(today.day() - table_days);
  std::vector<AnalyticLine> lines;
  if (!walk_rows(connector, analytic_statement(from), [&](RecordSet& rows) { lines = scan_analytic_lines(rows); }))
    return false;
  into = std::move(lines);
  return true;
}

Delays load_delays(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding) {
  return whole("the delays", Delays(), [&](Delays& into) { return load_delays(connector, selection, binding, into); });
}

Counts load_counts(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding) {
  return whole("the frequencies", Counts(),
               [&](Counts& into) { return load_counts(connector, selection, binding, into); });
}

Averages load_averages(DbConnector& connector, const DrawSelection& selection, PeriodBinding binding) {
  return whole("the average frequencies", Averages(),
               [&](Averages& into) { return load_averages(connector, selection, binding, into); });
}

std::vector<AnalyticLine> load_analytic_lines(DbConnector& connector, automation::Date today) {
  return whole("the analytic table", std::vector<AnalyticLine>(),
               [&](std::vector<AnalyticLine>& into) { return load_analytic_lines(connector, today, into); });
}

}  // namespace vestara
