#include "vestara/study/chance/probability_tails.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>

namespace vestara::study {
namespace {

constexpr double precision = std::numeric_limits<double>::epsilon();

/// log(a!) less Stirling's approximation of it.
double stirling_error(double a) {
  constexpr double series_from = 16;
  if (a < series_from)
    return std::log(std::tgamma(a + 1)) - (a + 0.5) * std::log(a) + a - 0.5 * std::log(2 * std::numbers::pi);
  const double square = 1 / (a * a);
  return (1.0 / 12 - (1.0 / 360 - (1.0 / 1260 - (1.0 / 1680 - square / 1188) * square) * square) * square) / a;
}

/// a log(a/x) + x - a, without cancellation where x is near a.
double deviance(double a, double x) {
  const double distance = a - x;
  const double ratio = distance / (a + x);
  constexpr double near = 0.1;
  if (std::abs(ratio) >= near) return a * std::log(a / x) - distance;
  double sum = distance * ratio;
  double power = 2 * a * ratio;
  for (int odd = 3;; odd += 2) {
    power *= ratio * ratio;
    const double next = sum + power / odd;
    if (next == sum) return sum;
    sum = next;
  }
}

/// x^a e^-x / a!
double common_factor(double a, double x) {
  return std::exp(-stirling_error(a) - deviance(a, x)) / std::sqrt(2 * std::numbers::pi * a);
}

/// The lower part of the incomplete gamma function, for x up to a + 1.
double lower_gamma(double a, double x) {
  double term = 1;
  double sum = 1;
  for (int32_t n = 1; term > sum * precision / 4; ++n) {
    term *= x / (a + n);
    sum += term;
  }
  return common_factor(a, x) * sum;
}

/// The upper part, for x above a + 1: the continued fraction by Lentz's method.
double upper_gamma(double a, double x) {
  double b = x + 1 - a;
  double c = 1 / std::numeric_limits<double>::min();
  double d = 1 / b;
  double fraction = d;
  for (int32_t n = 1;; ++n) {
    const double numerator = -n * (n - a);
    b += 2;
    d = 1 / (numerator * d + b);
    c = b + numerator / c;
    const double step = c * d;
    fraction *= step;
    if (std::abs(step - 1) <= precision) return common_factor(a, x) * a * fraction;
  }
}

}  // namespace

double chi_square_tail(double statistic, double degrees) {
  const double a = degrees / 2;
  const double x = statistic / 2;
  if (x <= 0) return 1;
  return x < a + 1 ? 1 - lower_gamma(a, x) : upper_gamma(a, x);
}

double normal_tails(double z) { return std::erfc(std::abs(z) / std::numbers::sqrt2); }

std::vector<std::optional<double>> holm_adjusted(const std::vector<std::optional<double>>& p) {
  std::vector<size_t> order;
  for (size_t i = 0; i < p.size(); ++i)
    if (p[i]) order.push_back(i);
  std::stable_sort(order.begin(), order.end(), [&](size_t left, size_t right) { return *p[left] < *p[right]; });
  std::vector<std::optional<double>> adjusted(p.size());
  double largest = 0;
  for (size_t place = 0; place < order.size(); ++place) {
    const auto left = static_cast<double>(order.size() - place);
    largest = std::max(largest, std::min(1.0, left * *p[order[place]]));
    adjusted[order[place]] = largest;
  }
  return adjusted;
}

}  // namespace vestara::study
