#include <algorithm>
#include <string>

#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/output_forms.h"
#include "hosts/cli/study/expected_draws.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/statistics/statistics.h"

namespace vestara::host {
namespace {

struct ProbabilityOptions {
  std::string numbers;
  std::string hits = "1";
  std::string wheels = "1";
};

void add_probability(CLI::App& app, ProbabilityOptions& options) {
  value_option(app, "--numbers", options.numbers, "N", "how many numbers are played, 1 to 90")->required();
  value_option(app, "--hits", options.hits, "HITS",
               "of which so many make a hit: 1 (default) to 5, or ambata to cinquina");
  value_option(app, "--wheels", options.wheels, "N", "on one at least of so many wheels, 1 (default) to 11");
}

std::string odds_text(double percent) {
  constexpr double certain = 100;
  if (percent <= 0) return "never";
  if (percent >= certain) return "certain";
  const double against = (certain - percent) / percent;
  return readable_text(std::max(against, 1 / against)) + (against >= 1 ? " to 1 against" : " to 1 on");
}

ExitCode run_probability(const ProbabilityOptions& options, const Context& context) {
  const auto numbers = static_cast<int16_t>(whole_value("--numbers", options.numbers, 1, number_count));
  const int16_t hits = hits_value(options.hits);
  const auto wheels = static_cast<int16_t>(whole_value("--wheels", options.wheels, 1, wheel_count));
  cStatistiche statistics;
  statistics.EstrNumeriGiocatiQta(numbers);
  statistics.EstrCombinazione(hits);
  statistics.EstrRuoteGiocateQta(wheels);
  const double percent = statistics.CalcolaPercTeorica(numbers, hits, wheels);
  Report report;
  report.facts = {{"numbers", int64_t{numbers}},
                  {"hits", int64_t{hits}},
                  {"wheels", int64_t{wheels}},
                  {"percent", percent},
                  {"draws_per_hit", expected_draws(statistics.CalcolaNumEstrDaPerc())},
                  {"odds", odds_text(percent)}};
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command probability_command{
    "probability", Group::questions, "Say how likely a hit is in one draw",
    "vestara probability --numbers 3 --hits ambo --wheels 10\n\n"
    "All of them are counts. Percent, expected draws for one hit, odds; never for what cannot be.",
    bound<add_probability, run_probability>};

}  // namespace vestara::host
