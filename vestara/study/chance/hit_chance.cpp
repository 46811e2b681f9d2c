#include "vestara/study/chance/hit_chance.h"

#include <algorithm>
#include <cmath>

#include "vestara/draws/group_place.h"

namespace vestara::study {

namespace {

/// Drawings that hold `least` to `most` of the numbers.
double share_of_drawings(int32_t numbers, int32_t least, int32_t most) {
  const auto given = static_cast<size_t>(numbers);
  uint64_t ways = 0;
  for (auto hit = static_cast<size_t>(least); hit <= static_cast<size_t>(most); ++hit)
    ways += uint64_t{choices(given, hit)} * choices(number_count - given, drawn_count - hit);
  return static_cast<double>(ways) / choices(number_count, drawn_count);
}

}  // namespace

double hit_chance(int32_t numbers, int32_t hits) { return share_of_drawings(numbers, hits, drawn_count); }

Chance chance_of_hits(int32_t numbers, int32_t hits) {
  return {hit_chance(numbers, hits), hits == 0 ? 0 : share_of_drawings(numbers, 0, hits - 1)};
}

double chance_on_wheels(double chance, int32_t wheels) {
  return wheels == 1 ? chance : -std::expm1(wheels * std::log1p(-chance));
}

Expectation expectation(const DrawSequence& sequence, const Chance& chance) {
  Expectation sum;
  sum.draws = sequence.draws();
  for (int32_t wheels = 1; wheels <= wheel_count; ++wheels) {
    const double draws = sequence.draws_by_wheels()[static_cast<size_t>(wheels)];
    const double in_a_draw = chance_on_wheels(chance.of, wheels);
    const double not_in_it = std::pow(chance.against, wheels);
    sum.mean += draws * in_a_draw;
    sum.missing += draws * not_in_it;
    sum.variance += draws * in_a_draw * not_in_it;
  }
  return sum;
}

}  // namespace vestara::study
