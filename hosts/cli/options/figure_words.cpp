#include "hosts/cli/options/figure_words.h"

#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara::host {

void add_figure_words(CLI::App& app, FigureWords& words) {
  value_option(app, "--wheels", words.wheels, "WHEELS", "BA,NA or all (default), or cities: the ten without RN");
  add_range(app, words.from, words.to);
  value_option(app, "--top", words.top, "N", "list the first N");
  app.add_flag("--grid", words.grid, "every wheel and number: a heat map in a table, rows in the other forms");
}

DrawRange draws_of(const FigureWords& words) {
  DrawRange range{wheels_value(words.wheels), day_bound("--from", words.from), day_bound("--to", words.to)};
  check_range(range.from, range.to);
  return range;
}

size_t top_of(const FigureWords& words) {
  constexpr int32_t most = wheel_count * number_count;
  if (words.top.empty()) return most;
  return static_cast<size_t>(whole_value("--top", words.top, 1, most));
}

}  // namespace vestara::host
