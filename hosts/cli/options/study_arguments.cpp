#include "hosts/cli/options/study_arguments.h"

#include "hosts/cli/failure.h"
#include "hosts/cli/options/command_parts.h"

namespace vestara::host {
namespace {

void add_numbers(CLI::App& app, StudyArguments& given) {
  app.add_option("NUMBERS", given.search.numbers, "1 to 90: 53, or 5,12,33, or 5 12 33")->type_name("")->required();
}

void add_distances(CLI::App& program, StudyArguments& given) {
  CLI::App& app = add_command(
      program, "distances", "List the gaps between the hits of the numbers",
      "vestara distances 53 --wheels VE --to 2005-02-09 --wheel-draws\n\n"
      "A gap counts the draws without a hit between two hits, every draw of the archive, also one in which\n"
      "the wheel itself was not drawn. --wheel-draws counts, beside that, only draws of the chosen wheels,\n"
      "as published delays do. Means and extremes include the gaps that are open on a side. Wheel, hits and\n"
      "contest are those of the earlier hit, with --asc of the later one.");
  add_numbers(app, given);
  add_hits_and_wheels(app, given.search.hits, given.search.wheels);
  add_range(app, given.search.from, given.search.to);
  app.add_flag("--asc", given.ascending, "oldest gap first");
  app.add_flag("--wheel-draws", given.wheel_draws, "also count the draws of the chosen wheels alone");
  app.add_flag("--plot", given.plot,
               "draw a histogram of the gaps that are closed, with --wheel-draws of that count; tables only");
}

void add_probability(CLI::App& program, StudyArguments& given) {
  CLI::App& app =
      add_command(program, "probability", "Say how likely a hit is in one draw",
                  "vestara probability --numbers 3 --hits ambo --wheels 10\n\n"
                  "All of them are counts. Percent, expected draws for one hit, odds; never for what cannot be.");
  value_option(app, "--numbers", given.count, "N", "how many numbers are played, 1 to 90")->required();
  value_option(app, "--hits", given.hits, "HITS",
               "of which so many make a hit: 1 (default) to 5, or ambata to cinquina");
  value_option(app, "--wheels", given.wheels, "N", "on one at least of so many wheels, 1 (default) to 11");
}

void add_combinations(CLI::App& program, StudyArguments& given) {
  CLI::App& app = add_command(
      program, "combinations", "List the ways to choose some of the numbers",
      "vestara combinations 5,12,33,40 --size 2\n\n"
      "The order is that of the numbers as they were given. The count is exact; in JSON it is a text when it\n"
      "is above 9223372036854775807. Ctrl-C ends the list behind a whole line, with exit code 130.");
  add_numbers(app, given);
  value_option(app, "--size", given.size, "K", "numbers in a combination")->required();
  app.add_flag("--count-only", given.count_only, "say how many there are");
  value_option(app, "--first", given.first, "N", "list the first N; without it, up to 2147483647 are listed");
}

}  // namespace

void add_studies(CLI::App& program, StudyArguments& given) {
  add_distances(program, given);
  add_probability(program, given);
  add_combinations(program, given);
}

DistancesOptions distances_options(const StudyArguments& given, OutputFormat format) {
  if (given.plot && format != OutputFormat::table)
    throw Failure(ExitCode::usage, "--plot goes with --format table only; the other forms carry the gaps themselves");
  DistancesOptions options{search_question(given.search), given.wheel_draws, given.plot};
  options.search.oldest_first = given.ascending;
  return options;
}

ProbabilityOptions probability_options(const StudyArguments& given) {
  constexpr int32_t most_numbers = 90;
  constexpr int32_t most_wheels = 11;
  return {static_cast<int16_t>(whole_value("--numbers", given.count, 1, most_numbers)), hits_value(given.hits),
          static_cast<int16_t>(whole_value("--wheels", given.wheels, 1, most_wheels))};
}

CombinationsOptions combinations_options(const StudyArguments& given) {
  constexpr int32_t most_numbers = 90;
  CombinationsOptions options{numbers_value(given.search.numbers), whole_value("--size", given.size, 1, most_numbers),
                              given.count_only, std::nullopt};
  check_size(options.numbers, options.size);
  if (given.first.empty()) return options;
  if (given.count_only) throw Failure(ExitCode::usage, "--count-only and --first exclude each other; give one of them");
  options.first = count_value("--first", given.first);
  return options;
}

}  // namespace vestara::host
