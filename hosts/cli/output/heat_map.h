#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vestara::host {

struct HeatCell {
  std::string text;
  std::optional<double> heat;  ///< nothing is never coloured
};

/// A figure for each wheel and number, rows of `cells` being those of `names`, columns the numbers from 1.
struct HeatMap {
  std::vector<std::string> names;
  std::vector<std::vector<HeatCell>> cells;
};

/// The map in blocks of numbers that fit into `width` characters: a line of numbers, then a line for each row. With
/// `colour` the cells have backgrounds from pale (the least figure) to red (the largest), and a legend ends the map.
std::string heat_map(const HeatMap& map, size_t width, bool colour);

}  // namespace vestara::host
