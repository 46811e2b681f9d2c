#pragma once

#include <cstdint>
#include <span>

#include "automation/variant.h"
#include "vestara/foundation/export.h"

namespace vestara {

enum class Deviation : bool { of_population, of_sample };
enum class EmptyElements : bool { count_as_zero, are_skipped };

/// The standard deviation of the numbers in a one-dimensional array, from their sum and the sum of their squares; 0.1
/// in place of 0, and for a sample of one: both are the contract's. Elements that are not numeric are skipped when they
/// convert to a number at all (a date). A sum below zero, which rounding can leave, counts as 0. Errors: 13 for a text
/// and for what is no array, 94 for Null, 6 for an array without numbers or for sums that are too large.
double standard_deviation(const automation::Variant& numbers, Deviation deviation, EmptyElements empty);

/// The same of whole numbers, 0 where they are equal. Error 6 for no numbers, and for a sample of one.
VESTARA_API double standard_deviation(std::span<const int32_t> numbers, Deviation deviation);

/// Mean and extremes of distances. Error 6 for none.
struct DistanceSummary {
  double mean = 0;
  double least = 0;
  double most = 0;
};
VESTARA_API DistanceSummary summary_of(std::span<const int32_t> distances);

}  // namespace vestara
