#include <algorithm>
#include <optional>
#include <vector>

#include "hosts/cli/command.h"
#include "hosts/cli/library_failure.h"
#include "hosts/cli/options/search_request.h"
#include "hosts/cli/output/histogram_plot.h"
#include "hosts/cli/study/gap_rows.h"
#include "vestara/foundation/message_text.h"
#include "vestara/study/wheel_draws.h"

namespace vestara::host {
namespace {

struct DistancesOptions {
  SearchWords words;
  bool oldest_first = false;
  bool wheel_draws = false;
  bool plot = false;
};

void add_distances(CLI::App& app, DistancesOptions& options) {
  add_search_words(app, options.words);
  app.add_flag("--asc", options.oldest_first, "oldest gap first");
  app.add_flag("--wheel-draws", options.wheel_draws, "also count the draws of the chosen wheels alone");
  app.add_flag("--plot", options.plot,
               "draw a histogram of the gaps that are closed, with --wheel-draws of that count; tables only");
}

/// The gaps, and beside each one the draws of the chosen wheels in it, when those were asked for.
struct Gaps {
  std::vector<GapRow> rows;
  std::vector<int64_t> wheel_draws;
};

Cell side_cell(std::optional<int32_t> day) { return day ? Cell(shown_day(*day)) : Cell(Absent{"open"}); }
Cell number_cell(std::optional<int32_t> number) { return number ? Cell(int64_t{*number}) : Cell(); }

std::vector<Cell> cells_of(const GapRow& row) {
  return {side_cell(row.from),
          side_cell(row.to),
          int64_t{row.draws},
          row.is_closed() ? Cell(int64_t{*row.to} - *row.from) : Cell(),
          row.wheel.empty() ? Cell() : Cell(row.wheel),
          number_cell(row.numbers_hit),
          number_cell(row.contest)};
}

void add_wheel_draws(Report& report, const Gaps& gaps) {
  const auto& draws = gaps.wheel_draws;
  if (draws.empty()) return;
  const auto [least, most] = std::minmax_element(draws.begin(), draws.end());
  double sum = 0;
  for (const int64_t count : draws) sum += static_cast<double>(count);
  const auto open = std::find_if(gaps.rows.begin(), gaps.rows.end(), [](const GapRow& row) { return !row.to; });
  const int64_t delay = open == gaps.rows.end() ? 0 : draws[static_cast<size_t>(open - gaps.rows.begin())];
  for (const Fact& fact : {Fact{"current_wheel_delay", delay},
                           {"mean_gap_wheel_draws", sum / static_cast<double>(draws.size())},
                           {"minimum_gap_wheel_draws", *least},
                           {"maximum_gap_wheel_draws", *most}})
    report.facts.push_back(fact);
  report.columns.emplace_back("wheel_draws");
  for (size_t i = 0; i < draws.size(); ++i) report.rows[i].emplace_back(draws[i]);
}

Report describe(const GapList& distances, const Gaps& gaps) {
  Report report;
  report.facts = gap_facts(distances);
  report.listing = "distances";
  report.row_kind = "distance";
  report.columns = {"from", "to", "draws", "days", "wheel", "hits", "contest"};
  for (const GapRow& row : gaps.rows) report.rows.push_back(cells_of(row));
  add_wheel_draws(report, gaps);
  return report;
}

void write_plot(std::ostream& out, const Gaps& gaps) {
  std::vector<int64_t> lengths;
  for (size_t i = 0; i < gaps.rows.size(); ++i)
    if (gaps.rows[i].is_closed())
      lengths.push_back(gaps.wheel_draws.empty() ? gaps.rows[i].draws : gaps.wheel_draws[i]);
  out << "\ngaps between two hits, in draws" << (gaps.wheel_draws.empty() ? "" : " of the wheels")
      << (lengths.empty() ? ": none" : "") << "\n"
      << plot(histogram_of(std::move(lengths)), {terminal_columns(out), shows_utf8(out)});
}

/// With the draws of the wheels of a range, when there is one.
Gaps gaps_of(const ArchiveSession& session, const GapList& distances, const std::optional<DrawRange>& range) {
  Gaps gaps{gap_rows(distances), {}};
  if (!range) return gaps;
  const WheelDraws draws(session, *range);
  for (const GapRow& row : gaps.rows) gaps.wheel_draws.push_back(draws.between(row.from, row.to));
  return gaps;
}

ExitCode run_distances(const DistancesOptions& options, const Context& context) {
  if (options.plot && context.settings.format != OutputFormat::table)
    throw Failure(FailureKind::argument,
                  "--plot goes with --format table only; the other forms carry the gaps themselves");
  const auto [numbers, hits, draws] = search_request(options.words);
  const ArchiveSession session = context.open_archive();
  const vestara::GapQuestion question{numbers.text, hits, selection_of(draws), date_order(options.oldest_first)};
  const GapList distances = answer(session, "the distances cannot be counted",
                                   [&](DbConnector& connector) { return load_gaps(connector, question); });
  const Gaps gaps = gaps_of(session, distances, options.wheel_draws ? std::optional(draws) : std::nullopt);
  context.show(describe(distances, gaps));
  if (options.plot) write_plot(context.out, gaps);
  const bool any_hit =
      std::any_of(gaps.rows.begin(), gaps.rows.end(), [](const GapRow& row) { return row.from || row.to; });
  return any_hit ? ExitCode::ok : ExitCode::nothing_found;
}

}  // namespace

extern const Command distances_command{
    "distances", Group::questions, "List the gaps between the hits of the numbers",
    "vestara distances 53 --wheels VE --to 2005-02-09 --wheel-draws\n\n"
    "A gap counts the draws without a hit between two hits, every draw of the archive, also one in which\n"
    "the wheel itself was not drawn. --wheel-draws counts, beside that, only draws of the chosen wheels,\n"
    "as published delays do. Means and extremes include the gaps that are open on a side. Wheel, hits and\n"
    "contest are those of the earlier hit, with --asc of the later one.",
    bound<add_distances, run_distances>};

}  // namespace vestara::host
