#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/number_arguments.h"

namespace vestara::host {
namespace {

void add_selection(CLI::App& app, NumberArguments& given) {
  value_option(app, "--wheels", given.wheels, "WHEELS", "BA,NA or all (default), or cities: the ten without RN");
  add_range(app, given.from, given.to);
  value_option(app, "--top", given.top, "N", "list the first N");
  app.add_flag("--grid", given.grid, "every wheel and number: a heat map in a table, rows in the other forms");
}

void add_delays(CLI::App& program, NumberArguments& given) {
  CLI::App& app = add_command(
      program, "delays", "Say how long ago each number came out",
      "vestara delays --wheels VE --to 2005-02-08 --top 10\n\n"
      "A delay counts draws of the wheel: 0 for a number of its newest draw. A number that did not come out\n"
      "in the range is never (the library's -1; empty or null in the forms for programs).\n"
      "The ranking is the library's: the successive maxima met from the newest draw back, 90 at most. That is\n"
      "no sort of all delays; --true-ranking is. With several wheels the library applies the dates to the\n"
      "first one only, so that here each wheel is asked for by itself and the rankings are put together.");
  add_selection(app, given);
  app.add_flag("--true-ranking", given.true_ranking, "every number on every wheel, sorted by its delay");
}

void add_frequencies(CLI::App& program, NumberArguments& given) {
  CLI::App& app = add_command(
      program, "frequencies", "Say how often each number came out",
      "vestara frequencies --from 1939-01-07 --to 1999-12-29 --numbers --top 10\n\n"
      "The ranking is the library's: one number on one wheel for each count, the first that it met, largest\n"
      "first, 90 at most; --all-levels lists them all. --average gives counts in a hundred draws, the first\n"
      "90 of them, divided by all dates on which one of the wheels was drawn: small for a wheel that began\n"
      "later. --per-wheel divides by the draws of the wheel itself and sorts by that.\n"
      "With several wheels the library applies the dates to the first one only, so that here each wheel is\n"
      "asked for by itself, its percentage being of its own dates, and the rankings are put together.");
  add_selection(app, given);
  app.add_flag("--average", given.average, "in a hundred draws rather than as a count");
  app.add_flag("--per-wheel", given.per_wheel, "with --average: in a hundred draws of the wheel");
  app.add_flag("--all-levels", given.all_levels, "every number on every wheel, sorted");
  app.add_flag("--numbers", given.number_totals, "each number over all of the wheels together");
}

void add_table(CLI::App& program, NumberArguments& given) {
  CLI::App& app = add_command(
      program, "table", "Show the analytic table: the draws that numbers came out in for the last time",
      "vestara table --as-of 2005-02-09 --per-wheel --format csv\n\n"
      "It always covers the 730 days up to today, or up to --as-of, which shows the archive as of that day:\n"
      "later draws do not count. A delay counts the dates of any wheel since, not the draws of the wheel;\n"
      "--per-wheel shows those beside it.");
  app.add_flag("--per-wheel", given.per_wheel, "also count the wheel's own draws since");
  value_option(app, "--as-of", given.as_of, "DATE", "the day that stands for today");
}

void add_gaps(CLI::App& program, NumberArguments& given) {
  CLI::App& app = add_command(
      program, "gaps", "List the distances between the appearances of a number or a pair",
      "vestara gaps 53 --wheel RN --plot\n"
      "  vestara gaps 5,12 --all --without-rn\n\n"
      "A distance counts draws of the wheel from one appearance to the next, 1 for neighbours: one more than\n"
      "the draws between them. `vestara distances` counts the draws without a hit, of the whole archive, and\n"
      "lists the open gaps as well. Over all wheels dates count, and a second wheel of a date is at distance\n"
      "0; means and deviation have those in them, mean between dates has not. The current delay counts draws\n"
      "since the last appearance: 0 for one in the newest. The histogram has a mark where chance would be: a\n"
      "number comes out on a wheel in 5 of 90 draws, a pair in 20 of 8010.");
  app.add_option("NUMBERS", given.numbers, "1 to 90: 53, or a pair: 5,12 or 5 12")->type_name("")->required();
  value_option(app, "--wheel", given.wheel, "WHEEL", "one of the eleven, as in RM or Roma");
  app.add_flag("--all", given.all, "over all wheels together (default)");
  app.add_flag("--without-rn", given.without_national, "but not the national one");
  add_range(app, given.from, given.to);
  app.add_flag("--plot", given.plot, "draw a histogram of the distances; tables only");
}

}  // namespace

void add_number_studies(CLI::App& program, NumberArguments& given) {
  add_delays(program, given);
  add_frequencies(program, given);
  add_table(program, given);
  add_gaps(program, given);
}

}  // namespace vestara::host
