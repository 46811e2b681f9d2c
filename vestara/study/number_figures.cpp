#include "vestara/draws/group_scan.h"
#include "vestara/study/figure_row.h"

namespace vestara::study {

std::vector<NumberFigures> number_figures(const Draws& draws, const Selection& selection, WheelView view) {
  std::vector<NumberFigures> rows;
  std::vector<Occurrences> found;
  for (const DrawSequence& sequence : draw_sequences(draws, selection.wheels, selection.period, view)) {
    const Expectation expected = expectation(sequence, chance_of_hits(1, 1));
    scan_small_groups(sequence, 1, found);
    for (int32_t number = 1; number <= number_count; ++number)
      rows.push_back({sequence.name(), number, figures_of(sequence, found[static_cast<size_t>(number - 1)], expected)});
  }
  return rows;
}

}  // namespace vestara::study
