#include <algorithm>
#include <string>

#include "hosts/cli/commands.h"
#include "hosts/cli/output/output_forms.h"
#include "hosts/cli/study/expected_draws.h"
#include "vestara/statistics/statistics.h"

namespace vestara::host {
namespace {

std::string odds_text(double percent) {
  constexpr double certain = 100;
  if (percent <= 0) return "never";
  if (percent >= certain) return "certain";
  const double against = (certain - percent) / percent;
  return readable_text(std::max(against, 1 / against)) + (against >= 1 ? " to 1 against" : " to 1 on");
}

}  // namespace

ExitCode run_probability(const ProbabilityOptions& options, const Context& context) {
  cStatistiche statistics;
  statistics.EstrNumeriGiocatiQta(options.numbers);
  statistics.EstrCombinazione(options.hits);
  statistics.EstrRuoteGiocateQta(options.wheels);
  const double percent = statistics.CalcolaPercTeorica(options.numbers, options.hits, options.wheels);
  Report report;
  report.facts = {{"numbers", int64_t{options.numbers}},
                  {"hits", int64_t{options.hits}},
                  {"wheels", int64_t{options.wheels}},
                  {"percent", percent},
                  {"draws_per_hit", expected_draws(statistics.CalcolaNumEstrDaPerc())},
                  {"odds", odds_text(percent)}};
  write_report(context.out, report, context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
