#include "hosts/cli/study/search_statistics.h"

#include <optional>
#include <string>

#include "hosts/cli/library_failure.h"
#include "hosts/cli/study/gap_rows.h"
#include "vestara/foundation/message_text.h"
#include "vestara/study/search_figures.h"
#include "vestara/study/wheel_draws.h"
#include "vestara/study/wheels_per_draw.h"

namespace vestara::host {
namespace {

void append(std::vector<Fact>& facts, const std::vector<Fact>& more) {
  facts.insert(facts.end(), more.begin(), more.end());
}

Cell cell_of(std::optional<double> figure) { return figure ? Cell(*figure) : Cell(); }

Cell draws_or_never(std::optional<double> draws) { return draws ? Cell(*draws) : Cell(Absent{"never"}); }

std::vector<Fact> library_facts(const SearchFigures::Contract& figures, int64_t draws) {
  return {{"theoretical_percent", figures.theoretical_percent},
          {"effective_percent", figures.effective_percent},
          {"theoretical_draws_per_hit", draws_or_never(figures.theoretical_draws_per_hit)},
          {"effective_draws_per_hit", draws_or_never(figures.effective_draws_per_hit)},
          {"wheels_in_formula", int64_t{figures.wheels}},
          {"draws_in_range", draws}};
}

std::vector<Fact> drawn_facts(const SearchFigures::Drawn& figures, const SearchOutcome& found) {
  return {{"plain_draws_in_range", figures.draws},
          {"wheels_per_draw", cell_of(figures.wheels_per_draw)},
          {"expected_draws_with_hit", figures.expected_hits},
          {"draws_with_hit", found.draws_with_hit},
          {"expected_percent", cell_of(figures.expected_percent)},
          {"plain_effective_percent", cell_of(figures.effective_percent)},
          {"expected_draws_per_hit", draws_or_never(figures.expected_draws_per_hit)},
          {"plain_effective_draws_per_hit", draws_or_never(figures.effective_draws_per_hit)},
          {"combinations_found", found.combinations}};
}

std::vector<Fact> facts_of_all_wheels(const std::optional<SearchFigures::AllWheels>& figures, int16_t wheels) {
  return {{"plain_theoretical_percent", figures ? Cell(figures->percent) : Cell()},
          {"plain_theoretical_draws_per_hit", figures ? draws_or_never(figures->draws_per_hit) : Cell()},
          {"plain_wheels", int64_t{wheels}}};
}

std::string note_on(const SearchOutcome& found, int64_t drawn) {
  std::string note;
  if (found.wheels < 1) note = "no wheel was named, so the library's theoretical figures are those of one wheel";
  const int64_t without = found.draws_in_range - drawn;
  if (without > 0)
    note += (note.empty() ? "the library's" : "; its") + std::string(" effective figures count ") +
            counted(static_cast<size_t>(without), "draw") + " of the range that had none of the wheels";
  return note;
}

}  // namespace

FactBlock statistics_block(const ArchiveSession& session, const DrawRange& range, const SearchQuestion& question,
                           const Hits& hits) {
  const SearchOutcome found = answer(session, "the hits cannot be counted",
                                     [&](DbConnector& connector) { return search_outcome(connector, question, hits); });
  const int16_t wheels = wheels_in(session, range);
  const SearchFigures figures = search_figures(found, WheelsPerDraw(session, range), wheels);
  FactBlock block{"statistics", drawn_facts(figures.drawn, found)};
  append(block.facts, gap_facts(found.gaps));
  append(block.facts, library_facts(figures.contract, found.draws_in_range));
  append(block.facts, facts_of_all_wheels(figures.all_wheels, wheels));
  const std::string note = note_on(found, figures.drawn.draws);
  if (!note.empty()) block.facts.push_back({"note", note});
  return block;
}

}  // namespace vestara::host
