#include "hosts/vestara/search_statistics.h"

#include <algorithm>
#include <string>

#include "hosts/vestara/expected_draws.h"
#include "hosts/vestara/gap_rows.h"
#include "hosts/vestara/shown_text.h"
#include "hosts/vestara/wheel_draws.h"

namespace vestara::host {
namespace {

void append(std::vector<Fact>& facts, const std::vector<Fact>& more) {
  facts.insert(facts.end(), more.begin(), more.end());
}

int16_t wheels_in_formula(const cStatistiche& statistics) {
  return std::max<int16_t>(1, statistics.EstrRuoteGiocateQta());
}

std::vector<Fact> library_facts(cStatistiche& statistics) {
  return {{"theoretical_percent",
           statistics.CalcolaPercTeorica(statistics.EstrNumeriGiocatiQta(), statistics.EstrCombinazione(),
                                         statistics.EstrRuoteGiocateQta())},
          {"effective_percent", statistics.EstrCalcolaPercEffettiva()},
          {"theoretical_draws_per_hit", expected_draws(statistics.CalcolaNumEstrDaPerc(false))},
          {"effective_draws_per_hit", expected_draws(statistics.CalcolaNumEstrDaPerc(true))},
          {"wheels_in_formula", int64_t{wheels_in_formula(statistics)}},
          {"draws_in_range", int64_t{statistics.EstrContaTutteLeEstrazioniNelleDate()}},
          {"draws_with_hit", int64_t{statistics.EstrContaTutteLeEstrazioniSortiteNelleDate()}},
          {"combinations_found", int64_t{statistics.EstrContaCombinazioniTrovate()}}};
}

/// The same two percentages of another number of wheels and draws.
std::vector<Fact> plain_facts(const cStatistiche& library, int16_t wheels, int64_t draws) {
  cStatistiche plain;
  plain.EstrNumeriGiocatiQta(library.EstrNumeriGiocatiQta());
  plain.EstrCombinazione(library.EstrCombinazione());
  plain.EstrRuoteGiocateQta(wheels);
  plain.EstrContaTutteLeEstrazioniNelleDate(static_cast<int32_t>(draws));
  plain.EstrContaTutteLeEstrazioniSortiteNelleDate(library.EstrContaTutteLeEstrazioniSortiteNelleDate());
  const bool any = wheels != 0;
  const auto theoretical = [&] {
    return plain.CalcolaPercTeorica(plain.EstrNumeriGiocatiQta(), plain.EstrCombinazione(), wheels);
  };
  return {{"plain_theoretical_percent", any ? Cell(theoretical()) : Cell()},
          {"plain_effective_percent", plain.EstrCalcolaPercEffettiva()},
          {"plain_theoretical_draws_per_hit", any ? expected_draws(plain.CalcolaNumEstrDaPerc(false)) : Cell()},
          {"plain_effective_draws_per_hit", expected_draws(plain.CalcolaNumEstrDaPerc(true))},
          {"plain_wheels", int64_t{wheels}},
          {"plain_draws_in_range", draws}};
}

std::string note_on(const cStatistiche& statistics, int16_t wheels, int64_t draws) {
  std::string note;
  if (wheels > wheels_in_formula(statistics))
    note = "no wheel was named, so the theoretical figures are those of one wheel; the plain ones are those of " +
           counted(static_cast<size_t>(wheels), "wheel");
  const int64_t without = statistics.EstrContaTutteLeEstrazioniNelleDate() - draws;
  if (without > 0)
    note += (note.empty() ? "" : "; ") + counted(static_cast<size_t>(without), "draw") +
            " of the range had none of the wheels; the plain effective figures leave them out";
  return note;
}

}  // namespace

FactBlock statistics_block(const ArchiveSession& session, const SearchOptions& question, cStatistiche& statistics) {
  const int16_t wheels = wheels_searched(session, question);
  const int64_t draws = WheelDraws(session, question).count();
  FactBlock block{"statistics", library_facts(statistics)};
  append(block.facts, plain_facts(statistics, wheels, draws));
  append(block.facts, gap_facts(*statistics.Distanze()));
  const std::string note = note_on(statistics, wheels, draws);
  if (!note.empty()) block.facts.push_back({"note", note});
  return block;
}

}  // namespace vestara::host
