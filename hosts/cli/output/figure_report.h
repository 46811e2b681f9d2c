#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "hosts/cli/output/output.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/ranking.h"

// How a figure for every number on every wheel is shown.

namespace vestara::host {

/// What the figures are called: a listing "delays" of rows "delay" with a column of that name.
struct FigureNames {
  std::string listing;
  std::string figure;
};

/// The delay -1 as "never", everything else as it is.
Cell figure_cell(int32_t value);
Cell figure_cell(double value);

/// Rank, number, wheel and figure of the first `top` entries.
template <class Value>
void list_ranking(Report& report, const FigureNames& names, const std::vector<RankingEntry<Value>>& ranking,
                  size_t top);

/// The grid: wheel, number and figure of each cell in the forms for programs, a map of colours in a table.
template <class Value>
void write_grid(std::ostream& out, Report report, const FigureNames& names, const WheelGrid<Value>& grid,
                const std::vector<int16_t>& wheels, const OutputStyle& style);

}  // namespace vestara::host
