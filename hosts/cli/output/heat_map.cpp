#include "hosts/cli/output/heat_map.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace vestara::host {
namespace {

struct Shade {
  std::string_view ground;  ///< of the 256 colours of terminals
  std::string_view ink;
};
constexpr std::string_view dark_ink = "16";
constexpr std::string_view pale_ink = "231";
constexpr std::array<Shade, 8> shades{{{"230", dark_ink},
                                       {"229", dark_ink},
                                       {"222", dark_ink},
                                       {"215", dark_ink},
                                       {"209", dark_ink},
                                       {"203", dark_ink},
                                       {"160", pale_ink},
                                       {"88", pale_ink}}};

std::string coloured(std::string_view text, const Shade& shade) {
  return std::string("\033[48;5;").append(shade.ground).append(";38;5;").append(shade.ink).append("m").append(text) +
         "\033[0m";
}

/// The figures that there are, as one scale.
struct Scale {
  const HeatCell* least = nullptr;
  const HeatCell* most = nullptr;

  const Shade& shade(double heat) const {
    const double extent = *most->heat - *least->heat;
    const double place = extent > 0 ? (heat - *least->heat) / extent : 0;
    return shades.at(static_cast<size_t>(std::lround(place * (shades.size() - 1))));
  }
};

Scale scale_of(const HeatMap& map) {
  Scale scale;
  for (const auto& row : map.cells)
    for (const HeatCell& cell : row) {
      if (!cell.heat) continue;
      if (!scale.least || *cell.heat < *scale.least->heat) scale.least = &cell;
      if (!scale.most || *cell.heat > *scale.most->heat) scale.most = &cell;
    }
  return scale;
}

struct Shape {
  size_t name = 0;
  size_t cell = 0;   ///< with the blank before it
  size_t block = 0;  ///< columns
};

Shape shape_of(const HeatMap& map, size_t columns, size_t width) {
  constexpr std::array<size_t, 6> blocks{90, 45, 30, 15, 10, 5};  // whole tens or their halves: easy to find
  Shape shape{0, std::to_string(columns).size(), blocks.back()};
  for (const std::string& name : map.names) shape.name = std::max(shape.name, name.size());
  for (const auto& row : map.cells)
    for (const HeatCell& cell : row) shape.cell = std::max(shape.cell, cell.text.size());
  ++shape.cell;
  const auto fits = [&](size_t block) { return shape.name + block * shape.cell < width; };
  if (const auto* block = std::find_if(blocks.begin(), blocks.end(), fits); block != blocks.end()) shape.block = *block;
  return shape;
}

std::string right_aligned(const std::string& text, size_t width) {
  return std::string(width - std::min(width, text.size()), ' ') + text;
}
std::string left_aligned(std::string text, size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

void append_block(std::string& out, const HeatMap& map, const Shape& shape, size_t first, size_t last,
                  const Scale* colours) {
  out.append(shape.name, ' ');
  for (size_t i = first; i < last; ++i) out += right_aligned(std::to_string(i + 1), shape.cell);
  out += '\n';
  for (size_t row = 0; row < map.names.size(); ++row) {
    out += left_aligned(map.names[row], shape.name);
    for (size_t i = first; i < last; ++i) {
      const HeatCell& cell = map.cells[row][i];
      const std::string text = right_aligned(cell.text, shape.cell);
      out += colours && cell.heat ? coloured(text, colours->shade(*cell.heat)) : text;
    }
    out += '\n';
  }
}

std::string legend(const Scale& scale) {
  std::string out = "\n" + scale.least->text + " ";
  for (const Shade& shade : shades) out += coloured("  ", shade);
  return out + " " + scale.most->text + "\n";
}

}  // namespace

std::string heat_map(const HeatMap& map, size_t width, bool colour) {
  const size_t columns = map.cells.empty() ? 0 : map.cells.front().size();
  const Shape shape = shape_of(map, columns, width);
  const Scale scale = scale_of(map);
  std::string out;
  for (size_t first = 0; first < columns; first += shape.block) {
    if (first != 0) out += '\n';
    append_block(out, map, shape, first, std::min(columns, first + shape.block), colour ? &scale : nullptr);
  }
  if (colour && scale.least) out += legend(scale);
  return out;
}

}  // namespace vestara::host
