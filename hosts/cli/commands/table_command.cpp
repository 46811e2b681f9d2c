#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "automation/coercion.h"
#include "automation/date.h"
#include "automation/text.h"
#include "hosts/cli/archive/archive_excerpt.h"
#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/library_failure.h"
#include "vestara/draws/draw_range.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/loads.h"
#include "vestara/study/wheel_calendar.h"

namespace vestara::host {
namespace {

constexpr int32_t days_covered = 730;

/// "5.12" as "5,12": a list, as commands take it, and no number with a fraction.
std::string listed(std::string numbers) {
  std::replace(numbers.begin(), numbers.end(), '.', ',');
  return numbers;
}

/// The last day on which the archive has a draw.
std::optional<int32_t> newest_day(const ArchiveSession& session) {
  auto rows = session.rows("SELECT max(dtEstr) AS ultima FROM storico");
  const auto date = rows->at_end() ? std::nullopt : automation::date_in(rows->value(Column{0}));
  session.connector()->CloseRecordset(rows);
  return date ? std::optional(date->day()) : std::nullopt;
}

std::string why_empty(const ArchiveSession& session, const DrawRange& window) {
  const auto newest = newest_day(session);
  if (!newest) return "the archive holds no draws; vestara import FILE fills it";
  return "the archive holds no draw from " + shown_day(*window.from) + " to " + shown_day(*window.to) +
         "; its newest is of " + shown_day(*newest) + ", --as-of DATE shows an older time";
}

Report describe(const std::vector<AnalyticLine>& table, int32_t first, int32_t today) {
  Report report;
  report.facts = {{"as_of", shown_day(today)}, {"from", shown_day(first)}, {"lines", std::ssize(table)}};
  report.listing = "lines";
  report.row_kind = "line";
  report.columns = {"date", "wheel", "numbers", "delay"};
  for (const AnalyticLine& line : table)
    report.rows.push_back({shown_day(line.date.day()), line.wheel, listed(line.numbers), int64_t{line.delay}});
  return report;
}

void add_wheel_delays(Report& report, const std::vector<AnalyticLine>& table, const WheelCalendar& calendar) {
  report.columns.emplace_back("wheel_delay");
  for (size_t i = 0; i < report.rows.size(); ++i) {
    const AnalyticLine& line = table[i];
    report.rows[i].emplace_back(calendar.draws_after(line.wheel_enumerator, line.date.day()));
  }
}

}  // namespace

ExitCode run_table(const TableOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const automation::Date today = options.as_of ? automation::Date::from_day(*options.as_of) : automation::now();
  const DrawRange window{{}, today.day() - days_covered, today.day()};
  // The library's table has a first date and no last one.
  const ArchiveSession seen = archive_excerpt(session, window);
  PreloadRuoteAlias(seen.connector());
  const auto table = answer(seen, "the table cannot be made",
                            [&](DbConnector& connector) { return load_analytic_lines(connector, today); });
  Report report = describe(table, *window.from, *window.to);
  if (options.wheel_draws) add_wheel_delays(report, table, WheelCalendar(seen, window));
  write_report(context.out, report, context.style());
  if (!report.rows.empty()) return ExitCode::ok;
  context.err << "vestara: " << why_empty(session, window) << "\n";
  return ExitCode::nothing_found;
}

}  // namespace vestara::host
