#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/support/study_oracle.h"

// The tests of fairness, each by its definition: counts against what chance gives, term by term. The chances of a
// statistic are sums of positive terms (chi-square of whole degrees) and the error function, so that nothing is
// approximated.

namespace testing_support::study {

/// That a chi-square of so many degrees is at least `value`.
long double chi_square_tail(long double value, int32_t degrees);
/// That a standard normal lies at least as far from 0, on either side.
long double two_sided(long double z);
/// Holm's adjustment, in the order given.
std::vector<double> holm(const std::vector<double>& p);

/// Of draws of one wheel by date: successive appearances of a number and the draws between them, in classes of six
/// from 0 to 71, then the rest.
using GapClasses = std::array<long double, 13>;
GapClasses closed_gaps(const std::vector<Numbers>& draws);
/// What chance gives in `draws` draws: a gap of g draws fits in draws - g - 1 places.
GapClasses expected_gaps(size_t draws);
/// Drawings that share 0, 1, 2 and more numbers with the one before.
std::array<long double, 4> overlaps(const std::vector<Numbers>& draws);
/// Drawings with 0 to 5 even numbers.
std::array<long double, 6> even_counts(const std::vector<Numbers>& draws);

/// Pearson's statistic of every number and of every pair of numbers, uncorrected.
long double pearson_of_numbers(const std::vector<Numbers>& draws);
long double pearson_of_pairs(const std::vector<Numbers>& draws);

/// One test of one wheel.
struct FairnessResult {
  std::string test;
  double statistic = 0;
  automation::Variant degrees;
  double p = 0;
};
/// Those that so many draws allow: none below 100, without `overlap` and `gaps` below 2,000.
std::vector<FairnessResult> fairness_of(const std::vector<Numbers>& draws);

Table fairness(const Draws& draws, const Selection& selection);

}  // namespace testing_support::study
