#pragma once

#include <optional>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara::study {

/// The chance that a chi-square variable with so many degrees of freedom (above 0) is at least `statistic` (0 or more).
/// Good to twelve digits or better. Sources: the series and the continued fraction of the incomplete gamma function, on
/// Loader's saddle-point form of their common factor.
VESTARA_API double chi_square_tail(double statistic, double degrees);

/// The chance that a normal variable lies at least `z` standard deviations from its mean, on either side.
VESTARA_API double normal_tails(double z);

/// Holm's adjustment of p-values for having looked at all of them; those that are missing are not counted.
VESTARA_API std::vector<std::optional<double>> holm_adjusted(const std::vector<std::optional<double>>& p);

}  // namespace vestara::study
