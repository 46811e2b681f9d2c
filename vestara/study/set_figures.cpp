#include "vestara/draws/group_scan.h"
#include "vestara/study/figure_row.h"

namespace vestara::study {

std::vector<SetFigures> set_figures(const Draws& draws, const SetQuestion& question) {
  std::vector<SetFigures> rows;
  for (const DrawSequence& sequence :
       draw_sequences(draws, question.selection.wheels, question.selection.period, question.view))
    for (const NamedNumbers& set : question.sets) {
      const Chance chance = chance_of_hits(static_cast<int32_t>(set.numbers.size()), question.hits);
      const Occurrences found = scan_set(sequence, mask_of(set.numbers), question.hits);
      rows.push_back({sequence.name(), set, figures_of(sequence, found, expectation(sequence, chance))});
    }
  return rows;
}

}  // namespace vestara::study
