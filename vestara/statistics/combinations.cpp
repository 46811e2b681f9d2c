#include "vestara/statistics/combinations.h"

#include <cmath>

#include "automation/int16.h"
#include "automation/values/doubles.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

namespace {

/// 1 - (1 - hit)^wheels, without the digits that the subtraction loses when a hit is rare.
double on_some_wheel(double hit, int16_t wheels) {
  if (wheels <= 1) return hit;
  if (hit >= 1) return 1 - std::pow(1 - hit, wheels);
  return -std::expm1(wheels * std::log1p(-hit));
}

}  // namespace

double combination_count(int16_t items, int16_t chosen) {
  double product = 0;
  double factorial = 1;
  automation::Int16 factor = items;
  for (int32_t i = 1; i <= chosen; ++i) {
    product = automation::finite(i == 1 ? factor.value() : product * factor.value());
    --factor;
    factorial = automation::finite(factorial * i);
  }
  return product / factorial;
}

double theoretical_percent(int16_t played, int16_t size, int16_t wheels, const Ways& ways) {
  const auto others = automation::Int16(number_count) - automation::Int16(played);
  double misses = ways(others, drawn_count);
  const auto last = automation::Int16(size) - automation::Int16(1);
  for (automation::Int16 hits = 1; hits.value() <= last.value(); ++hits) {
    const double draws = ways(played, hits) * ways(others, automation::Int16(drawn_count) - hits);
    misses = automation::finite(misses + automation::finite(draws));
  }
  const double all = ways(number_count, drawn_count);
  return automation::finite(on_some_wheel((all - misses) / all, wheels) * 100);
}

}  // namespace vestara
