#include <algorithm>
#include <string>

#include "automation/date.h"
#include "automation/text.h"
#include "hosts/vestara/archive_session.h"
#include "hosts/vestara/commands.h"
#include "hosts/vestara/draw_range.h"
#include "hosts/vestara/library_failure.h"
#include "hosts/vestara/shown_text.h"
#include "hosts/vestara/wheel_calendar.h"
#include "vestara/frequency/analytic_table.h"

namespace vestara::host {
namespace {

constexpr int32_t days_covered = 730;

/// "5.12" as "5,12": a list, as commands take it, and no number with a fraction.
std::string listed(std::string numbers) {
  std::replace(numbers.begin(), numbers.end(), '.', ',');
  return numbers;
}

/// Dates since a day that have a draw with all of its numbers: the library looks at no others.
int64_t dates_since(const ArchiveSession& session, int32_t day) {
  auto rows = session.rows("SELECT count(DISTINCT dtEstr) AS giorni FROM storico" + range_condition({{}, day, {}}) +
                           " AND estr1>0 AND estr2>0 AND estr3>0 AND estr4>0 AND estr5>0");
  const int64_t dates = rows->at_end() ? 0 : rows->whole_number(rows->column("giorni"));
  session.connector()->CloseRecordset(rows);
  return dates;
}

void add_note_on_later_draws(Report& report, int64_t later) {
  if (later == 0) return;
  report.facts.push_back({"note", counted(static_cast<size_t>(later), "draw date") + " after that day " +
                                      (later == 1 ? "counts" : "count") + " as well"});
}

Report describe(const cTabAnalytics& table, int32_t first, int32_t today) {
  Report report;
  report.facts = {{"as_of", shown_day(today)}, {"from", shown_day(first)}, {"lines", int64_t{table.GetItemCount()}}};
  report.listing = "lines";
  report.row_kind = "line";
  report.columns = {"date", "wheel", "numbers", "delay"};
  for (const AnalyticLine& line : table.lines())
    report.rows.push_back({shown_day(line.date.day()), line.wheel, listed(line.numbers), int64_t{line.delay}});
  return report;
}

void add_wheel_delays(Report& report, const cTabAnalytics& table, const WheelCalendar& calendar) {
  report.columns.emplace_back("wheel_delay");
  for (size_t i = 0; i < report.rows.size(); ++i) {
    const AnalyticLine& line = table.lines()[i];
    report.rows[i].emplace_back(calendar.draws_after(line.wheel_enumerator, line.date.day()));
  }
}

}  // namespace

ExitCode run_table(const TableOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const automation::Date today = options.as_of ? automation::Date::from_day(*options.as_of) : automation::now();
  const int32_t first = today.day() - days_covered;
  cTabAnalytics table([today] { return today; });
  table.ActiveConnection(session.connector());
  table.LoadTabelloneAnalitico();
  require(!table.lines().empty() || dates_since(session, first) == 0, session, "the table cannot be made");
  Report report = describe(table, first, today.day());
  add_note_on_later_draws(report, dates_since(session, today.day() + 1));
  if (options.wheel_draws) add_wheel_delays(report, table, WheelCalendar(session, {{}, first, {}}));
  write_report(context.out, report, context.style());
  return report.rows.empty() ? ExitCode::nothing_found : ExitCode::ok;
}

}  // namespace vestara::host
