#include "hosts/cli/study/search_statistics.h"

#include <algorithm>
#include <string>

#include "automation/text.h"
#include "hosts/cli/library_failure.h"
#include "hosts/cli/study/gap_rows.h"
#include "vestara/distances/gap_list.h"
#include "vestara/foundation/message_text.h"
#include "vestara/statistics/combinations.h"
#include "vestara/study/wheel_draws.h"
#include "vestara/study/wheels_per_draw.h"

namespace vestara::host {
namespace {

void append(std::vector<Fact>& facts, const std::vector<Fact>& more) {
  facts.insert(facts.end(), more.begin(), more.end());
}

/// What the library's figures are made of.
struct Found {
  int16_t numbers = 0;  ///< played
  int16_t size = 0;     ///< of a hit
  int16_t wheels = 0;   ///< named by the search
  int64_t draws = 0;    ///< dates of the range that hold a number
  int64_t draws_with_hit = 0;
  int64_t combinations = 0;
  GapList gaps;
};

Found found_by(DbConnector& connector, const SearchQuestion& question, const Hits& hits) {
  const DrawSelection& draws = question.selection;
  const HitCounters& counters = hits.count.combinations;
  return {
      .numbers = static_cast<int16_t>(automation::split(question.numbers, ',').size()),
      .size = question.least_hits,
      .wheels = static_cast<int16_t>(draws.wheels.count()),
      .draws = count_draws(connector, {draws.from, draws.to}),
      .draws_with_hit = std::ssize(hits.dates),
      .combinations = int64_t{counters.ambate} + counters.ambi + counters.terni + counters.quaterne + counters.cinquine,
      .gaps = load_gaps(connector, {question.numbers, question.least_hits, draws, DateOrder::newest_first})};
}

/// Expected draws for one hit.
Cell draws_for(double percent) { return percent > 0 ? Cell(100 / percent) : Cell(Absent{"never"}); }

/// As the library's contract has them: one wheel when none was named, all draw dates of the range.
std::vector<Fact> library_facts(const Found& found) {
  const double theoretical = theoretical_percent(found.numbers, found.size, found.wheels);
  const double effective =
      found.draws > 0 ? static_cast<double>(found.draws_with_hit) / static_cast<double>(found.draws) * 100 : 0;
  return {{"theoretical_percent", theoretical},
          {"effective_percent", effective},
          {"theoretical_draws_per_hit", draws_for(theoretical)},
          {"effective_draws_per_hit", draws_for(effective)},
          {"wheels_in_formula", int64_t{std::max<int16_t>(1, found.wheels)}},
          {"draws_in_range", found.draws}};
}

Cell share(double part, int64_t whole, double unit) {
  return whole == 0 ? Cell() : Cell(unit * part / static_cast<double>(whole));
}

Cell draws_per_hit(int64_t draws, double hits) {
  return hits > 0 ? Cell(static_cast<double>(draws) / hits) : Cell(Absent{"never"});
}

/// What chance would give in the very draws of the archive, and what they gave.
std::vector<Fact> drawn_facts(const Found& found, const WheelsPerDraw& drawn) {
  constexpr double percent = 100;
  const int64_t draws = drawn.draws();
  const double expected = drawn.expected_hits(found.numbers, found.size);
  const int64_t hits = found.draws_with_hit;
  return {{"plain_draws_in_range", draws},
          {"wheels_per_draw", share(static_cast<double>(drawn.wheels()), draws, 1)},
          {"expected_draws_with_hit", expected},
          {"draws_with_hit", hits},
          {"expected_percent", share(expected, draws, percent)},
          {"plain_effective_percent", share(static_cast<double>(hits), draws, percent)},
          {"expected_draws_per_hit", draws_per_hit(draws, expected)},
          {"plain_effective_draws_per_hit", draws_per_hit(draws, static_cast<double>(hits))},
          {"combinations_found", found.combinations}};
}

/// What chance would give if every wheel of the search were drawn each time.
std::vector<Fact> facts_of_all_wheels(const Found& found, int16_t wheels) {
  constexpr int64_t hundred_draws = 100;
  std::vector<Fact> facts{
      {"plain_theoretical_percent", {}}, {"plain_theoretical_draws_per_hit", {}}, {"plain_wheels", int64_t{wheels}}};
  if (wheels == 0) return facts;
  const double percent = theoretical_percent(found.numbers, found.size, wheels);
  facts[0].value = percent;
  facts[1].value = draws_per_hit(hundred_draws, percent);
  return facts;
}

std::string note_on(const Found& found, const WheelsPerDraw& drawn) {
  std::string note;
  if (found.wheels < 1) note = "no wheel was named, so the library's theoretical figures are those of one wheel";
  const int64_t without = found.draws - drawn.draws();
  if (without > 0)
    note += (note.empty() ? "the library's" : "; its") + std::string(" effective figures count ") +
            counted(static_cast<size_t>(without), "draw") + " of the range that had none of the wheels";
  return note;
}

}  // namespace

FactBlock statistics_block(const ArchiveSession& session, const DrawRange& range, const SearchQuestion& question,
                           const Hits& hits) {
  const Found found = answer(session, "the hits cannot be counted",
                             [&](DbConnector& connector) { return found_by(connector, question, hits); });
  const WheelsPerDraw drawn(session, range);
  FactBlock block{"statistics", drawn_facts(found, drawn)};
  append(block.facts, gap_facts(found.gaps));
  append(block.facts, library_facts(found));
  append(block.facts, facts_of_all_wheels(found, wheels_in(session, range)));
  const std::string note = note_on(found, drawn);
  if (!note.empty()) block.facts.push_back({"note", note});
  return block;
}

}  // namespace vestara::host
