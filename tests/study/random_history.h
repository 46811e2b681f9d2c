#pragma once

#include "tests/support/random_archive.h"

namespace study_test {

/// Draws as history left them: wheels that begin late, wheels missing on a date, dates with one wheel, years without a
/// draw, numbers that were never drawn, contests that nobody noted; from no draws to a few dozen dates. Rows come in no
/// order. No wheel is drawn twice on a date.
testing_support::Archive random_history(testing_support::Random& random);

/// So many draws of one wheel, on successive days, all numbers alike.
testing_support::Archive fair_history(testing_support::Random& random, const std::string& wheel, size_t draws);

/// Five numbers of `pool`, in the order of the drawing.
std::array<std::optional<int32_t>, 5> random_drawing(testing_support::Random& random, std::vector<int32_t> pool);
/// 1 to 90.
std::vector<int32_t> every_number();

template <class T>
void shuffle(testing_support::Random& random, std::vector<T>& items) {
  for (size_t i = items.size(); i > 1; --i) std::swap(items[i - 1], items[random.below(i)]);
}

}  // namespace study_test
