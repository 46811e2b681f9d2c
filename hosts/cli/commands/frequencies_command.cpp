#include <algorithm>
#include <utility>

#include "hosts/cli/command.h"
#include "hosts/cli/library_failure.h"
#include "hosts/cli/options/figure_words.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/figure_report.h"
#include "vestara/draws/draw_range.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/study/frequency_figures.h"
#include "vestara/study/plain_ranking.h"
#include "vestara/study/wheel_calendar.h"

namespace vestara::host {
namespace {

struct FrequenciesOptions {
  FigureWords figures;
  bool average = false;
  bool per_wheel = false;
  bool all_levels = false;
  bool numbers = false;
};

void add_frequencies(CLI::App& app, FrequenciesOptions& options) {
  add_figure_words(app, options.figures);
  app.add_flag("--average", options.average, "in a hundred draws rather than as a count");
  app.add_flag("--per-wheel", options.per_wheel, "with --average: in a hundred draws of the wheel");
  app.add_flag("--all-levels", options.all_levels, "every number on every wheel, sorted");
  app.add_flag("--numbers", options.numbers, "each number over all of the wheels together");
}

/// Failure (usage) when options are given together that say different things.
void check_together(const FrequenciesOptions& options) {
  const FigureWords& words = options.figures;
  if (words.grid)
    refuse("--grid",
           {{"--top", !words.top.empty()}, {"--all-levels", options.all_levels}, {"--numbers", options.numbers}},
           "a grid has every number of every wheel");
  if (options.numbers)
    refuse("--numbers", {{"--average", options.average}, {"--all-levels", options.all_levels}},
           "it lists the counts of all numbers");
  if (!options.average && options.per_wheel)
    throw Failure(FailureKind::argument, "--per-wheel goes with --average only; counts are those of the wheel anyway");
}

/// What is counted, and how it is shown.
struct FrequencyQuestion {
  DrawRange draws;
  size_t top = 0;
  const FrequenciesOptions& given;
};

FrequencyQuestion frequency_question(const FrequenciesOptions& options) {
  check_together(options);
  return {draws_of(options.figures), top_of(options.figures), options};
}

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
  const FrequencyQuestion& question;
  std::vector<int16_t> wheels;
  Counts counts;
  Figures<double> library;
  WheelCalendar calendar;
};

void list_percent(Report& report, const Averages& averages) {
  const bool in_full = averages.question.given.all_levels;
  const auto ranking = in_full ? plain_ranking(averages.library.grid, averages.wheels) : averages.library.ranking;
  list_ranking(report, {"frequencies", "percent"}, ranking, averages.question.top);
  for (size_t i = 0; i < report.rows.size(); ++i)
    append_cells(report, {"times"}, i, {int64_t{averages.counts.at(ranking[i].wheel, ranking[i].number)}});
}

void list_percent_of_wheel(Report& report, const Averages& averages, const WheelGrid<double>& percent) {
  const auto ranking = plain_ranking(percent, averages.wheels);
  const size_t all = averages.question.given.all_levels ? ranking.size() : size_t{ranking_last} + 1;
  list_ranking(report, {"frequencies", "wheel_percent"}, ranking, std::min(all, averages.question.top));
  for (size_t i = 0; i < report.rows.size(); ++i) {
    const auto& [number, wheel, value] = ranking[i];
    append_cells(report, {"times", "wheel_draws", "percent"}, i,
                 {int64_t{averages.counts.at(wheel, number)}, averages.calendar.draws(wheel),
                  averages.library.grid.at(wheel, number)});
  }
}

void write_averages(Report report, const Averages& averages, const Context& context) {
  const bool grid = averages.question.given.figures.grid;
  if (wheel_loads(averages.question.draws).size() == 1) report.facts.push_back({"dates", averages.calendar.dates()});
  if (averages.question.given.per_wheel) {
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
  context.show(report);
}

void write_counts(Report report, const FrequencyQuestion& question, const Figures<int32_t>& counts,
                  const Context& context) {
  const auto wheels = chosen_wheels(question.draws.wheels);
  const FigureNames names{"frequencies", "times"};
  if (question.given.figures.grid) return write_grid(context.out, report, names, counts.grid, wheels, context.style());
  if (question.given.numbers)
    list_numbers(report, counts.grid, wheels, question.top);
  else if (question.given.all_levels)
    list_ranking(report, names, plain_ranking(counts.grid, wheels), question.top);
  else
    list_ranking(report, names, counts.ranking, question.top);
  context.show(report);
}

constexpr const char* no_counts = "the frequencies cannot be counted";

ExitCode run_frequencies(const FrequenciesOptions& options, const Context& context) {
  const FrequencyQuestion question = frequency_question(options);
  const DrawRange& draws = question.draws;
  const ArchiveSession session = context.open_archive();
  const auto wheels = chosen_wheels(draws.wheels);
  const auto exit_code = [&](const Counts& counts) {
    return total(counts, wheels) == 0 ? ExitCode::nothing_found : ExitCode::ok;
  };
  if (!options.average) {
    const auto counts = answer(session, no_counts, [&](DbConnector&) { return count_figures(session, draws); });
    write_counts(begin_report(counts.grid, draws), question, counts, context);
    return exit_code(counts.grid);
  }
  auto averages = answer(session, no_counts, [&](DbConnector&) { return average_figures(session, draws); });
  write_averages(begin_report(averages.times, draws),
                 {question, wheels, averages.times, std::move(averages.percent), WheelCalendar(session, draws)},
                 context);
  return exit_code(averages.times);
}

}  // namespace

extern const Command frequencies_command{
    "frequencies", Group::questions, "Say how often each number came out",
    "vestara frequencies --from 1939-01-07 --to 1999-12-29 --numbers --top 10\n\n"
    "The ranking is the library's: one number on one wheel for each count, the first that it met, largest\n"
    "first, 90 at most; --all-levels lists them all. --average gives counts in a hundred draws, the first\n"
    "90 of them, divided by all dates on which one of the wheels was drawn: small for a wheel that began\n"
    "later. --per-wheel divides by the draws of the wheel itself and sorts by that.\n"
    "With several wheels the library applies the dates to the first one only, so that here each wheel is\n"
    "asked for by itself, its percentage being of its own dates, and the rankings are put together.",
    bound<add_frequencies, run_frequencies>};

}  // namespace vestara::host
