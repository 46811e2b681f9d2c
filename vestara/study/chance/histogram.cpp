#include "vestara/study/chance/histogram.h"

#include <algorithm>
#include <cmath>

namespace vestara {
namespace {

constexpr int64_t most_classes = 30;

/// The next of 1, 2, 5, 10, 20, 50, …
int64_t next_width(int64_t width) {
  int64_t power = 1;
  while (power * 10 <= width) power *= 10;
  return width / power == 2 ? 5 * power : width < 5 * power ? 2 * power : 10 * power;
}

double wanted_width(const std::vector<int64_t>& sorted) {
  const auto quartile = [&](size_t quarters) { return sorted[(sorted.size() - 1) * quarters / 4]; };
  return 2 * static_cast<double>(quartile(3) - quartile(1)) / std::cbrt(static_cast<double>(sorted.size()));
}

int64_t class_width(const std::vector<int64_t>& sorted) {
  const double wanted = wanted_width(sorted);
  const auto classes = [&](int64_t width) { return sorted.back() / width - sorted.front() / width + 1; };
  int64_t width = 1;
  while (static_cast<double>(width) < wanted || classes(width) > most_classes) width = next_width(width);
  return width;
}

}  // namespace

Histogram histogram_of(std::vector<int64_t> values) {
  Histogram histogram;
  if (values.empty()) return histogram;
  std::sort(values.begin(), values.end());
  histogram.width = class_width(values);
  histogram.first = values.front() / histogram.width * histogram.width;
  histogram.counts.resize(static_cast<size_t>((values.back() - histogram.first) / histogram.width) + 1);
  for (const int64_t value : values)
    ++histogram.counts[static_cast<size_t>((value - histogram.first) / histogram.width)];
  return histogram;
}

}  // namespace vestara
