#pragma once

#include <vector>

#include "tests/support/random_archive.h"

// Is a test of fairness fair itself? Its p over many archives drawn by chance must be uniform, and a bias that was
// planted must be found.

namespace study_test {

/// Kolmogorov and Smirnov's: the chance that uniform values lie so unevenly (asymptotic, with Stephens' correction).
double uniform_chance(std::vector<double> values);

/// So many draws of BA, of which 53 comes out more often than it should, by 40 %.
testing_support::Archive biased_history(testing_support::Random& random, size_t draws);

}  // namespace study_test
