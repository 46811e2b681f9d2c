#include "vestara/distances/deviation.h"

#include <algorithm>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/values/doubles.h"

namespace vestara {
namespace {

constexpr double least_deviation = 0.1;

struct Sums {
  double count = 0;
  double sum = 0;
  double squares = 0;
  double first = 0;
  bool are_equal = true;

  void add(double value) {
    if (count == 0) first = value;
    are_equal = are_equal && value == first;
    ++count;
    sum = automation::finite(sum + value);
    squares = automation::finite(squares + automation::finite(value * value));
  }
  double deviation(Deviation kind) const {
    const double divisor = kind == Deviation::of_sample ? count - 1 : count;
    const double residue = squares - automation::quotient(automation::finite(sum * sum), count);
    // Binary fractions may leave a residue where there is none, or one below zero.
    const double deviating = are_equal ? 0 : std::max(residue, 0.0);
    return automation::square_root(automation::quotient(deviating, divisor));
  }
};

Sums sums_of(const automation::Array& array, EmptyElements empty) {
  Sums sums;
  for (int32_t i = array.lower(); i <= array.upper(); ++i) {
    const automation::Variant& element = array.at(i);
    // The conversion comes first: what does not convert fails the whole call.
    const double value = automation::to_double(element);
    const bool skipped = element.is_empty() && empty == EmptyElements::are_skipped;
    if (automation::is_numeric(element) && !skipped) sums.add(value);
  }
  return sums;
}

}  // namespace

double standard_deviation(const automation::Variant& numbers, Deviation deviation, EmptyElements empty) {
  if (numbers.is_object()) return standard_deviation(automation::to_plain(numbers), deviation, empty);
  const auto* array = numbers.get_if<automation::Array>();
  if (!array) throw automation::type_mismatch();
  const Sums sums = sums_of(*array, empty);
  if (deviation == Deviation::of_sample && sums.count == 1) return least_deviation;
  const double result = sums.deviation(deviation);
  return result == 0 ? least_deviation : result;
}

double standard_deviation(std::span<const int32_t> numbers, Deviation deviation) {
  Sums sums;
  for (const int32_t number : numbers) sums.add(number);
  return sums.deviation(deviation);
}

DistanceSummary summary_of(std::span<const int32_t> distances) {
  DistanceSummary summary;
  double sum = 0;
  for (const int32_t distance : distances) sum += distance;
  summary.mean = automation::quotient(sum, static_cast<double>(distances.size()));
  const auto [least, most] = std::minmax_element(distances.begin(), distances.end());
  summary.least = *least;
  summary.most = *most;
  return summary;
}

}  // namespace vestara
