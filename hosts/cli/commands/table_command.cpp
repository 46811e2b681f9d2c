#include <algorithm>
#include <string>
#include <vector>

#include "automation/date.h"
#include "automation/text.h"
#include "hosts/cli/command.h"
#include "hosts/cli/library_failure.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "vestara/draws/draw_range.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/loads.h"
#include "vestara/keeping/archive_counts.h"
#include "vestara/keeping/copy/archive_excerpt.h"
#include "vestara/study/wheel_calendar.h"

namespace vestara::host {
namespace {

struct TableOptions {
  bool per_wheel = false;
  std::string as_of;  ///< today, when it is empty
};

void add_table(CLI::App& app, TableOptions& options) {
  app.add_flag("--per-wheel", options.per_wheel, "also count the wheel's own draws since");
  value_option(app, "--as-of", options.as_of, "DATE", "the day that stands for today");
}

constexpr int32_t days_covered = 730;

/// "5.12" as "5,12": a list, as commands take it, and no number with a fraction.
std::string listed(std::string numbers) {
  std::replace(numbers.begin(), numbers.end(), '.', ',');
  return numbers;
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

/// An archive in memory with the draws of the window alone: the library's table has a first date and no last one.
ArchiveSession excerpt_of(const ArchiveSession& session, const DrawRange& window) {
  ArchiveSession excerpt = ArchiveSession::in_memory();
  try {
    copy_excerpt(session, excerpt, window);
  } catch (const UnfitRow& unfit) {
    throw Failure(FailureKind::database, unfit.description() + "; vestara doctor says more");
  }
  return excerpt;
}

ExitCode run_table(const TableOptions& options, const Context& context) {
  const auto as_of = day_bound("--as-of", options.as_of);
  const ArchiveSession session = context.open_archive();
  const automation::Date today = as_of ? automation::Date::from_day(*as_of) : automation::now();
  const DrawRange window{{}, today.day() - days_covered, today.day()};
  const ArchiveSession seen = excerpt_of(session, window);
  PreloadRuoteAlias(seen.connector());
  const auto table = answer(seen, "the table cannot be made",
                            [&](DbConnector& connector) { return load_analytic_lines(connector, today); });
  Report report = describe(table, *window.from, *window.to);
  if (options.per_wheel) add_wheel_delays(report, table, WheelCalendar(seen, window));
  context.show(report);
  if (!report.rows.empty()) return ExitCode::ok;
  context.remark(why_empty(session, window));
  return ExitCode::nothing_found;
}

}  // namespace

extern const Command table_command{
    "table", Group::questions, "Show the analytic table: the draws that numbers came out in for the last time",
    "vestara table --as-of 2005-02-09 --per-wheel --format csv\n\n"
    "It always covers the 730 days up to today, or up to --as-of, which shows the archive as of that day:\n"
    "later draws do not count. A delay counts the dates of any wheel since, not the draws of the wheel;\n"
    "--per-wheel shows those beside it.",
    bound<add_table, run_table>};

}  // namespace vestara::host
