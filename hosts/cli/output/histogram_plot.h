#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vestara/study/chance/histogram.h"

namespace vestara::host {

struct PlotStyle {
  size_t columns = 80;
  bool utf8 = false;  ///< block characters rather than "#"
};

/// One line a class: its bounds, its count, a bar. `expected` has a count for each class, shown as a mark in the
/// line, or nothing at all.
std::string plot(const Histogram& histogram, const PlotStyle& style, const std::vector<double>& expected = {});

}  // namespace vestara::host
