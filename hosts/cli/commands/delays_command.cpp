#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/output/figure_report.h"
#include "hosts/cli/study/frequency_figures.h"
#include "hosts/cli/study/plain_ranking.h"
#include "vestara/draws/draw_range.h"
#include "vestara/draws/wheel_names.h"

namespace vestara::host {
namespace {

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

}  // namespace

ExitCode run_delays(const DelaysOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const auto delays = load_delays(session, options.draws);
  const auto wheels = chosen_wheels(options.draws.wheels);
  const Entries all = plain_ranking(delays.grid, wheels);
  const FigureNames names{"delays", "delay"};
  Report report;
  report.facts = facts_of(all, options.draws);
  if (options.shown == Shown::grid) {
    write_grid(context.out, report, names, delays.grid, wheels, context.style());
  } else {
    list_ranking(report, names, options.ranked == Ranked::in_full ? all : delays.ranking, options.top);
    write_report(context.out, report, context.style());
  }
  return all.front().value < 0 ? ExitCode::nothing_found : ExitCode::ok;
}

}  // namespace vestara::host
