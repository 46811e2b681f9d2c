#include "vestara/study/figure_row.h"

#include <cmath>

namespace vestara::study {

std::optional<double> deviation(int32_t times, const Expectation& expected) {
  if (expected.variance <= 0) return std::nullopt;
  // The smaller of two counts tells the difference without loss.
  const double above =
      expected.mean < expected.missing ? times - expected.mean : expected.missing - (expected.draws - times);
  return above / std::sqrt(expected.variance);
}

Figures figures_of(const DrawSequence& sequence, const Occurrences& found, const Expectation& expected) {
  const auto date = [&](int32_t draw) { return automation::Date::from_day(sequence.day(draw)); };
  Figures figures;
  figures.draws = sequence.draws();
  figures.times = found.times;
  figures.expected = expected.mean;
  figures.z = deviation(found.times, expected);
  figures.delay = found.delay(sequence.draws());
  if (found.times > 0) figures.last = date(found.last);
  figures.record = found.record;
  if (found.record > 0) {
    figures.record_from = date(found.record_first);
    figures.record_to = date(found.record_first + found.record - 1);
  }
  return figures;
}

}  // namespace vestara::study
