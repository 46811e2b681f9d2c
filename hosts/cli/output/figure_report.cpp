#include "hosts/cli/output/figure_report.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "hosts/cli/output/heat_map.h"
#include "hosts/cli/terminal/terminal.h"
#include "vestara/draws/wheel_names.h"

namespace vestara::host {
namespace {

HeatCell heat_cell(int32_t value) {
  if (value < 0) return {"-", std::nullopt};
  return {std::to_string(value), value};
}
/// One decimal: a grid is looked at, not read out.
HeatCell heat_cell(double value) {
  std::array<char, 32> text{};
  char* const end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 1).ptr;
  return {{text.data(), end}, value};
}

template <class Value>
HeatMap map_of(const WheelGrid<Value>& grid, const std::vector<int16_t>& wheels) {
  HeatMap map;
  for (const int16_t wheel : wheels) {
    map.names.emplace_back(wheel_code(wheel));
    auto& row = map.cells.emplace_back();
    for (int16_t number = 1; number <= number_count; ++number) row.push_back(heat_cell(grid.at(wheel, number)));
  }
  return map;
}

void begin_listing(Report& report, const FigureNames& names, std::vector<std::string> columns) {
  report.listing = names.listing;
  report.row_kind = names.figure;
  report.columns = std::move(columns);
  report.columns.push_back(names.figure);
}

}  // namespace

Cell figure_cell(int32_t value) { return value < 0 ? Cell(Absent{"never"}) : Cell(int64_t{value}); }
Cell figure_cell(double value) { return value; }

template <class Value>
void list_ranking(Report& report, const FigureNames& names, const std::vector<RankingEntry<Value>>& ranking,
                  size_t top) {
  begin_listing(report, names, {"rank", "number", "wheel"});
  for (size_t i = 0; i < std::min(top, ranking.size()); ++i)
    report.rows.push_back({static_cast<int64_t>(i + 1), int64_t{ranking[i].number},
                           std::string(wheel_code(ranking[i].wheel)), figure_cell(ranking[i].value)});
}

template <class Value>
void write_grid(std::ostream& out, Report report, const FigureNames& names, const WheelGrid<Value>& grid,
                const std::vector<int16_t>& wheels, const OutputStyle& style) {
  if (style.format == OutputFormat::table) {
    write_report(out, report, style);
    out << "\n" << heat_map(map_of(grid, wheels), terminal_columns(out), style.colour);
    return;
  }
  begin_listing(report, names, {"wheel", "number"});
  for (const int16_t wheel : wheels)
    for (int16_t number = 1; number <= number_count; ++number)
      report.rows.push_back({std::string(wheel_code(wheel)), int64_t{number}, figure_cell(grid.at(wheel, number))});
  write_report(out, report, style);
}

template void list_ranking(Report&, const FigureNames&, const std::vector<RankingEntry<int32_t>>&, size_t);
template void list_ranking(Report&, const FigureNames&, const std::vector<RankingEntry<double>>&, size_t);
template void write_grid(std::ostream&, Report, const FigureNames&, const WheelGrid<int32_t>&,
                         const std::vector<int16_t>&, const OutputStyle&);
template void write_grid(std::ostream&, Report, const FigureNames&, const WheelGrid<double>&,
                         const std::vector<int16_t>&, const OutputStyle&);

}  // namespace vestara::host
