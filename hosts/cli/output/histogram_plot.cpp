#include "hosts/cli/output/histogram_plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace vestara::host {
namespace {

std::string class_name(const Histogram& histogram, size_t index) {
  const std::string least = std::to_string(histogram.least(index));
  return histogram.width == 1 ? least : least + "-" + std::to_string(histogram.most(index));
}

void append_right(std::string& out, const std::string& text, size_t width) {
  out.append(width - std::min(width, text.size()), ' ').append(text);
}

/// A bar `length` characters long, in eighths of a character where they can be shown. A bar of something is never
/// nothing.
std::vector<std::string_view> bar(double length, bool utf8) {
  constexpr size_t parts = 8;
  constexpr std::array<std::string_view, parts> part{"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
  if (length <= 0) return {};
  if (!utf8) return std::vector<std::string_view>(static_cast<size_t>(std::max(1.0, std::round(length))), "#");
  const auto eighths = static_cast<size_t>(std::max(1.0, std::round(length * parts)));
  std::vector<std::string_view> cells(eighths / parts, "█");
  if (eighths % parts != 0) cells.push_back(part[eighths % parts]);
  return cells;
}

void put_mark(std::vector<std::string_view>& cells, double place, size_t room, bool utf8) {
  const size_t cell = std::min(static_cast<size_t>(std::round(place)), room - 1);
  if (cells.size() <= cell) cells.resize(cell + 1, " ");
  cells[cell] = utf8 ? "┃" : "|";
}

struct Columns {
  size_t name = 0;
  size_t count = 0;
  size_t room = 0;  ///< for bars
};

Columns columns_of(const Histogram& histogram, size_t width) {
  constexpr size_t least_room = 10;
  constexpr size_t gaps = 4;
  Columns columns;
  for (size_t i = 0; i < histogram.counts.size(); ++i) {
    columns.name = std::max(columns.name, class_name(histogram, i).size());
    columns.count = std::max(columns.count, std::to_string(histogram.counts[i]).size());
  }
  const size_t taken = columns.name + columns.count + gaps;
  columns.room = width > taken + least_room ? width - taken : least_room;
  return columns;
}

double highest(const Histogram& histogram, const std::vector<double>& expected) {
  double most = 1;
  for (const size_t count : histogram.counts) most = std::max(most, static_cast<double>(count));
  for (const double count : expected) most = std::max(most, count);
  return most;
}

}  // namespace

std::string plot(const Histogram& histogram, const PlotStyle& style, const std::vector<double>& expected) {
  const Columns columns = columns_of(histogram, style.columns);
  const double scale = static_cast<double>(columns.room) / highest(histogram, expected);
  std::string out;
  for (size_t i = 0; i < histogram.counts.size(); ++i) {
    append_right(out, class_name(histogram, i), columns.name);
    out += "  ";
    append_right(out, std::to_string(histogram.counts[i]), columns.count);
    auto cells = bar(static_cast<double>(histogram.counts[i]) * scale, style.utf8);
    if (!expected.empty()) put_mark(cells, expected[i] * scale, columns.room, style.utf8);
    if (!cells.empty()) out += "  ";
    for (const std::string_view cell : cells) out += cell;
    out += '\n';
  }
  return out;
}

}  // namespace vestara::host
