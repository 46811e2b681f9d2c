#include <algorithm>
#include <utility>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/output/figure_report.h"
#include "hosts/cli/study/frequency_figures.h"
#include "hosts/cli/study/plain_ranking.h"
#include "vestara/draws/draw_range.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/study/wheel_calendar.h"

namespace vestara::host {
namespace {

using Counts = WheelGrid<int32_t>;

int64_t total(const Counts& counts, const std::vector<int16_t>& wheels) {
  int64_t sum = 0;
  for (const auto& entry : plain_ranking(counts, wheels)) sum += entry.value;
  return sum;
}

Report begin_report(const Counts& counts, const DrawRange& draws) {
  Report report;
  report.facts = {{"numbers_drawn", total(counts, chosen_wheels(draws.wheels))}};
  if (const std::string note = note_on_loads(draws); !note.empty()) report.facts.push_back({"note", note});
  return report;
}

/// How often each number came out on all of the wheels, the most frequent first.
void list_numbers(Report& report, const Counts& counts, const std::vector<int16_t>& wheels, size_t top) {
  Counts sums;
  sums.fill(0);
  for (const auto& entry : plain_ranking(counts, wheels)) sums.at(1, entry.number) += entry.value;
  report.listing = "numbers";
  report.row_kind = "number";
  report.columns = {"rank", "number", "times"};
  const auto ranking = plain_ranking(sums, {1});
  for (size_t i = 0; i < std::min(top, ranking.size()); ++i)
    report.rows.push_back({static_cast<int64_t>(i + 1), int64_t{ranking[i].number}, int64_t{ranking[i].value}});
}

/// In a hundred draws of the wheel itself; 0 where there are none.
WheelGrid<double> percent_of_wheels(const Counts& counts, const std::vector<int16_t>& wheels,
                                    const WheelCalendar& calendar) {
  WheelGrid<double> percent;
  percent.fill(0);
  for (const auto& [number, wheel, count] : plain_ranking(counts, wheels))
    if (count != 0) percent.at(wheel, number) = 100.0 * count / static_cast<double>(calendar.draws(wheel));
  return percent;
}

void append_cells(Report& report, const std::vector<std::string>& columns, size_t row, std::vector<Cell> cells) {
  if (row == 0) report.columns.insert(report.columns.end(), columns.begin(), columns.end());
  report.rows[row].insert(report.rows[row].end(), cells.begin(), cells.end());
}

/// What an average frequency is made of.
struct Averages {
  const FrequenciesOptions& options;
  std::vector<int16_t> wheels;
  Counts counts;
  Figures<double> library;
  WheelCalendar calendar;
};

void list_percent(Report& report, const Averages& averages) {
  const bool in_full = averages.options.ranked == Ranked::in_full;
  const auto ranking = in_full ? plain_ranking(averages.library.grid, averages.wheels) : averages.library.ranking;
  list_ranking(report, {"frequencies", "percent"}, ranking, averages.options.top);
  for (size_t i = 0; i < report.rows.size(); ++i)
    append_cells(report, {"times"}, i, {int64_t{averages.counts.at(ranking[i].wheel, ranking[i].number)}});
}

void list_percent_of_wheel(Report& report, const Averages& averages, const WheelGrid<double>& percent) {
  const auto ranking = plain_ranking(percent, averages.wheels);
  const size_t all = averages.options.ranked == Ranked::in_full ? ranking.size() : size_t{ranking_last} + 1;
  list_ranking(report, {"frequencies", "wheel_percent"}, ranking, std::min(all, averages.options.top));
  for (size_t i = 0; i < report.rows.size(); ++i) {
    const auto& [number, wheel, value] = ranking[i];
    append_cells(report, {"times", "wheel_draws", "percent"}, i,
                 {int64_t{averages.counts.at(wheel, number)}, averages.calendar.draws(wheel),
                  averages.library.grid.at(wheel, number)});
  }
}

void write_averages(Report report, const Averages& averages, const Context& context) {
  const bool of_wheel = averages.options.counted == Counted::percent_of_wheel;
  const bool grid = averages.options.shown == Shown::grid;
  if (wheel_loads(averages.options.draws).size() == 1) report.facts.push_back({"dates", averages.calendar.dates()});
  if (of_wheel) {
    const auto percent = percent_of_wheels(averages.counts, averages.wheels, averages.calendar);
    if (grid)
      return write_grid(context.out, report, {"frequencies", "wheel_percent"}, percent, averages.wheels,
                        context.style());
    list_percent_of_wheel(report, averages, percent);
  } else {
    if (grid)
      return write_grid(context.out, report, {"frequencies", "percent"}, averages.library.grid, averages.wheels,
                        context.style());
    list_percent(report, averages);
  }
  write_report(context.out, report, context.style());
}

void write_counts(Report report, const FrequenciesOptions& options, const Figures<int32_t>& counts,
                  const Context& context) {
  const auto wheels = chosen_wheels(options.draws.wheels);
  const FigureNames names{"frequencies", "times"};
  if (options.shown == Shown::grid) return write_grid(context.out, report, names, counts.grid, wheels, context.style());
  if (options.numbers)
    list_numbers(report, counts.grid, wheels, options.top);
  else if (options.ranked == Ranked::in_full)
    list_ranking(report, names, plain_ranking(counts.grid, wheels), options.top);
  else
    list_ranking(report, names, counts.ranking, options.top);
  write_report(context.out, report, context.style());
}

}  // namespace

ExitCode run_frequencies(const FrequenciesOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const auto wheels = chosen_wheels(options.draws.wheels);
  const auto exit_code = [&](const Counts& counts) {
    return total(counts, wheels) == 0 ? ExitCode::nothing_found : ExitCode::ok;
  };
  if (options.counted == Counted::times) {
    const auto counts = load_counts(session, options.draws);
    write_counts(begin_report(counts.grid, options.draws), options, counts, context);
    return exit_code(counts.grid);
  }
  auto averages = load_averages(session, options.draws);
  write_averages(begin_report(averages.times, options.draws),
                 {options, wheels, averages.times, std::move(averages.percent), WheelCalendar(session, options.draws)},
                 context);
  return exit_code(averages.times);
}

}  // namespace vestara::host
