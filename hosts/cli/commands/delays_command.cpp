#include "hosts/cli/command.h"
#include "hosts/cli/library_failure.h"
#include "hosts/cli/options/figure_words.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/figure_report.h"
#include "vestara/draws/draw_range.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/study/frequency_figures.h"
#include "vestara/study/plain_ranking.h"

namespace vestara::host {
namespace {

struct DelaysOptions {
  FigureWords figures;
  bool true_ranking = false;
};

void add_delays(CLI::App& app, DelaysOptions& options) {
  add_figure_words(app, options.figures);
  app.add_flag("--true-ranking", options.true_ranking, "every number on every wheel, sorted by its delay");
}

using Entries = std::vector<RankingEntry<int32_t>>;

/// Of all delays, sorted.
std::vector<Fact> facts_of(const Entries& all, const DrawRange& draws) {
  const auto never = std::count_if(all.begin(), all.end(), [](const auto& entry) { return entry.value < 0; });
  const bool any = never != std::ssize(all);
  std::vector<Fact> facts{{"longest_delay", any ? figure_cell(all.front().value) : Cell()},
                          {"drawn", std::ssize(all) - never},
                          {"never_drawn", int64_t{never}}};
  if (const std::string note = note_on_loads(draws); !note.empty()) facts.push_back({"note", note});
  return facts;
}

ExitCode run_delays(const DelaysOptions& options, const Context& context) {
  const FigureWords& words = options.figures;
  if (words.grid)
    refuse("--grid", {{"--top", !words.top.empty()}, {"--true-ranking", options.true_ranking}}, "a grid has no order");
  const DrawRange draws = draws_of(words);
  const size_t top = top_of(words);
  const ArchiveSession session = context.open_archive();
  const auto delays =
      answer(session, "the delays cannot be counted", [&](DbConnector&) { return delay_figures(session, draws); });
  const auto wheels = chosen_wheels(draws.wheels);
  const Entries all = plain_ranking(delays.grid, wheels);
  const FigureNames names{"delays", "delay"};
  Report report;
  report.facts = facts_of(all, draws);
  if (words.grid) {
    write_grid(context.out, report, names, delays.grid, wheels, context.style());
  } else {
    list_ranking(report, names, options.true_ranking ? all : delays.ranking, top);
    context.show(report);
  }
  return all.front().value < 0 ? ExitCode::nothing_found : ExitCode::ok;
}

}  // namespace

extern const Command delays_command{
    "delays", Group::questions, "Say how long ago each number came out",
    "vestara delays --wheels VE --to 2005-02-08 --top 10\n\n"
    "A delay counts draws of the wheel: 0 for a number of its newest draw. A number that did not come out\n"
    "in the range is never (the library's -1; empty or null in the forms for programs).\n"
    "The ranking is the library's: the successive maxima met from the newest draw back, 90 at most. That is\n"
    "no sort of all delays; --true-ranking is. With several wheels the library applies the dates to the\n"
    "first one only, so that here each wheel is asked for by itself and the rankings are put together.",
    bound<add_delays, run_delays>};

}  // namespace vestara::host
