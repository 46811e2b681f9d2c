#include "vestara/study/search_figures.h"

#include <algorithm>

#include "automation/text.h"
#include "vestara/statistics/combinations.h"

namespace vestara {
namespace {

constexpr double hundred = 100;

std::optional<double> share(double part, int64_t whole, double unit) {
  return whole == 0 ? std::nullopt : std::optional(unit * part / static_cast<double>(whole));
}

std::optional<double> draws_per_hit(double draws, double hits) {
  return hits > 0 ? std::optional(draws / hits) : std::nullopt;
}

SearchFigures::Drawn drawn_figures(const SearchOutcome& outcome, const WheelsPerDraw& drawn) {
  const int64_t draws = drawn.draws();
  const double expected = drawn.expected_hits(outcome.numbers, outcome.size);
  const auto hits = static_cast<double>(outcome.draws_with_hit);
  return {.draws = draws,
          .wheels_per_draw = share(static_cast<double>(drawn.wheels()), draws, 1),
          .expected_hits = expected,
          .expected_percent = share(expected, draws, hundred),
          .effective_percent = share(hits, draws, hundred),
          .expected_draws_per_hit = draws_per_hit(static_cast<double>(draws), expected),
          .effective_draws_per_hit = draws_per_hit(static_cast<double>(draws), hits)};
}

SearchFigures::Contract contract_figures(const SearchOutcome& outcome) {
  const double theoretical = theoretical_percent(outcome.numbers, outcome.size, outcome.wheels);
  const double effective = outcome.draws_in_range > 0 ? static_cast<double>(outcome.draws_with_hit) /
                                                            static_cast<double>(outcome.draws_in_range) * hundred
                                                      : 0;
  return {.wheels = std::max<int16_t>(1, outcome.wheels),
          .theoretical_percent = theoretical,
          .effective_percent = effective,
          .theoretical_draws_per_hit = draws_per_hit(hundred, theoretical),
          .effective_draws_per_hit = draws_per_hit(hundred, effective)};
}

}  // namespace

SearchOutcome search_outcome(DbConnector& connector, const SearchQuestion& question, const Hits& hits) {
  const DrawSelection& draws = question.selection;
  const HitCounters& counters = hits.count.combinations;
  return {
      .numbers = static_cast<int16_t>(automation::split(question.numbers, ',').size()),
      .size = question.least_hits,
      .wheels = static_cast<int16_t>(draws.wheels.count()),
      .draws_in_range = count_draws(connector, {draws.from, draws.to}),
      .draws_with_hit = std::ssize(hits.dates),
      .combinations = int64_t{counters.ambate} + counters.ambi + counters.terni + counters.quaterne + counters.cinquine,
      .gaps = load_gaps(connector, {question.numbers, question.least_hits, draws, DateOrder::newest_first})};
}

SearchFigures search_figures(const SearchOutcome& outcome, const WheelsPerDraw& drawn, int16_t wheels) {
  SearchFigures figures{
      .drawn = drawn_figures(outcome, drawn), .contract = contract_figures(outcome), .all_wheels = {}};
  if (wheels == 0) return figures;
  const double percent = theoretical_percent(outcome.numbers, outcome.size, wheels);
  figures.all_wheels = {percent, draws_per_hit(hundred, percent)};
  return figures;
}

}  // namespace vestara
