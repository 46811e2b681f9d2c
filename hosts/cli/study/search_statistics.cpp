#include "hosts/cli/study/search_statistics.h"

#include <algorithm>
#include <string>

#include "hosts/cli/study/expected_draws.h"
#include "hosts/cli/study/gap_rows.h"
#include "vestara/foundation/message_text.h"
#include "vestara/study/wheel_draws.h"
#include "vestara/study/wheels_per_draw.h"

namespace vestara::host {
namespace {

void append(std::vector<Fact>& facts, const std::vector<Fact>& more) {
  facts.insert(facts.end(), more.begin(), more.end());
}

int16_t wheels_in_formula(const cStatistiche& statistics) {
  return std::max<int16_t>(1, statistics.EstrRuoteGiocateQta());
}

/// As the library's contract has them: one wheel when none was named, all draw dates of the range.
std::vector<Fact> library_facts(cStatistiche& statistics) {
  return {{"theoretical_percent",
           statistics.CalcolaPercTeorica(statistics.EstrNumeriGiocatiQta(), statistics.EstrCombinazione(),
                                         statistics.EstrRuoteGiocateQta())},
          {"effective_percent", statistics.EstrCalcolaPercEffettiva()},
          {"theoretical_draws_per_hit", expected_draws(statistics.CalcolaNumEstrDaPerc(false))},
          {"effective_draws_per_hit", expected_draws(statistics.CalcolaNumEstrDaPerc(true))},
          {"wheels_in_formula", int64_t{wheels_in_formula(statistics)}},
          {"draws_in_range", int64_t{statistics.EstrContaTutteLeEstrazioniNelleDate()}}};
}

Cell share(double part, int64_t whole, double unit) {
  return whole == 0 ? Cell() : Cell(unit * part / static_cast<double>(whole));
}

Cell draws_per_hit(int64_t draws, double hits) {
  return hits > 0 ? Cell(static_cast<double>(draws) / hits) : Cell(Absent{"never"});
}

/// What chance would give in the very draws of the archive, and what they gave.
std::vector<Fact> drawn_facts(const cStatistiche& statistics, const WheelsPerDraw& drawn) {
  constexpr double percent = 100;
  const int64_t draws = drawn.draws();
  const double expected = drawn.expected_hits(statistics.EstrNumeriGiocatiQta(), statistics.EstrCombinazione());
  const int64_t hits = statistics.EstrContaTutteLeEstrazioniSortiteNelleDate();
  return {{"plain_draws_in_range", draws},
          {"wheels_per_draw", share(static_cast<double>(drawn.wheels()), draws, 1)},
          {"expected_draws_with_hit", expected},
          {"draws_with_hit", hits},
          {"expected_percent", share(expected, draws, percent)},
          {"plain_effective_percent", share(static_cast<double>(hits), draws, percent)},
          {"expected_draws_per_hit", draws_per_hit(draws, expected)},
          {"plain_effective_draws_per_hit", draws_per_hit(draws, static_cast<double>(hits))},
          {"combinations_found", int64_t{statistics.EstrContaCombinazioniTrovate()}}};
}

/// What chance would give if every wheel of the search were drawn each time.
std::vector<Fact> facts_of_all_wheels(const cStatistiche& library, int16_t wheels) {
  constexpr int64_t hundred_draws = 100;
  std::vector<Fact> facts{
      {"plain_theoretical_percent", {}}, {"plain_theoretical_draws_per_hit", {}}, {"plain_wheels", int64_t{wheels}}};
  if (wheels == 0) return facts;
  const double percent =
      cStatistiche().CalcolaPercTeorica(library.EstrNumeriGiocatiQta(), library.EstrCombinazione(), wheels);
  facts[0].value = percent;
  facts[1].value = draws_per_hit(hundred_draws, percent);
  return facts;
}

std::string note_on(const cStatistiche& statistics, const WheelsPerDraw& drawn) {
  std::string note;
  if (statistics.EstrRuoteGiocateQta() < 1)
    note = "no wheel was named, so the library's theoretical figures are those of one wheel";
  const int64_t without = statistics.EstrContaTutteLeEstrazioniNelleDate() - drawn.draws();
  if (without > 0)
    note += (note.empty() ? "the library's" : "; its") + std::string(" effective figures count ") +
            counted(static_cast<size_t>(without), "draw") + " of the range that had none of the wheels";
  return note;
}

}  // namespace

FactBlock statistics_block(const ArchiveSession& session, const DrawRange& range, cStatistiche& statistics) {
  const WheelsPerDraw drawn(session, range);
  FactBlock block{"statistics", drawn_facts(statistics, drawn)};
  append(block.facts, gap_facts(*statistics.Distanze()));
  append(block.facts, library_facts(statistics));
  append(block.facts, facts_of_all_wheels(statistics, wheels_in(session, range)));
  const std::string note = note_on(statistics, drawn);
  if (!note.empty()) block.facts.push_back({"note", note});
  return block;
}

}  // namespace vestara::host
