#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "automation/coercion.h"
#include "automation/text.h"
#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/combinations_head.h"
#include "hosts/cli/output/number_stream.h"
#include "hosts/cli/terminal/interruption.h"
#include "hosts/cli/terminal/progress_bar.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/statistics/combinations.h"

namespace vestara::host {
namespace {

struct CombinationsOptions {
  std::vector<std::string> numbers;
  std::string size;
  bool count_only = false;
  std::string first;
};

void add_combinations(CLI::App& app, CombinationsOptions& options) {
  add_numbers(app, options.numbers);
  value_option(app, "--size", options.size, "K", "numbers in a combination")->required();
  app.add_flag("--count-only", options.count_only, "say how many there are");
  value_option(app, "--first", options.first, "N", "list the first N; without it, up to 2147483647 are listed");
}

/// Which combinations are asked for.
struct Choice {
  NumberList numbers;
  int32_t size = 0;  ///< 1 to as many as there are numbers
  std::optional<uint64_t> first;
};

Choice choice_of(const CombinationsOptions& options) {
  Choice choice{numbers_value(options.numbers), whole_value("--size", options.size, 1, number_count), std::nullopt};
  check_size(choice.numbers, choice.size);
  if (options.first.empty()) return choice;
  if (options.count_only)
    throw Failure(FailureKind::argument, "--count-only and --first exclude each other; give one of them");
  choice.first = count_value("--first", options.first);
  return choice;
}

std::vector<int32_t> values_of(const NumberList& numbers) {
  std::vector<int32_t> values;
  for (const std::string_view piece : automation::split(numbers.text, ','))
    values.push_back(automation::leading_number(piece));
  return values;
}

/// How many are going to be listed. Failure (usage) for more than a collection could hold, unless so many were asked
/// for.
uint64_t wanted_of(const Choice& choice) {
  const ExactCount count = combination_count(choice.numbers.count, choice.size);
  if (choice.first) return count < *choice.first ? static_cast<uint64_t>(count) : *choice.first;
  if (count <= static_cast<uint32_t>(std::numeric_limits<int32_t>::max())) return static_cast<uint64_t>(count);
  throw Failure(FailureKind::argument, std::to_string(choice.size) + " of " + std::to_string(choice.numbers.count) +
                                           " numbers make " + digits_of(count) + " combinations, more than the " +
                                           std::to_string(std::numeric_limits<int32_t>::max()) +
                                           " that can be listed; give --first N for some of them, or --count-only");
}

/// Returns how many were written: fewer than wanted when somebody stopped it, or took no more.
uint64_t list(const std::vector<int32_t>& values, uint64_t wanted, NumberStream& stream, ProgressBar* progress,
              CombinationWalk& walk) {
  constexpr uint64_t step = 4096;
  std::vector<int32_t> row(walk.places().size());
  for (uint64_t listed = 0; listed < wanted; ++listed) {
    if (Interruption::requested()) return listed;
    if (progress && listed % step == 0) progress->show(listed, wanted);
    std::transform(walk.places().begin(), walk.places().end(), row.begin(),
                   [&](int32_t place) { return values[static_cast<size_t>(place - 1)]; });
    if (!stream.add(row)) return listed;
    walk.advance();
  }
  return wanted;
}

ExitCode write_combinations(const Choice& choice, uint64_t wanted, const Context& context) {
  const std::vector<int32_t> values = values_of(choice.numbers);
  NumberStream stream(context.out, combinations_head(choice.numbers.count, choice.size, Listing::follows),
                      context.style(), *std::max_element(values.begin(), values.end()));
  const Interruption interruption;
  uint64_t listed = 0;
  {
    // The lines themselves show how far it is where a person sees them.
    std::optional<ProgressBar> progress;
    if (!is_terminal(context.out)) progress.emplace(context.err, "combinations");
    CombinationWalk walk(static_cast<int32_t>(values.size()), choice.size);
    listed = list(values, wanted, stream, progress ? &*progress : nullptr, walk);
  }
  if (listed == wanted || !Interruption::requested()) {
    stream.finish();
    return ExitCode::ok;
  }
  stream.break_off();
  throw Failure(FailureKind::interrupted,
                "interrupted after " + std::to_string(listed) + " of " + std::to_string(wanted) + " combinations");
}

ExitCode run_combinations(const CombinationsOptions& options, const Context& context) {
  const Choice choice = choice_of(options);
  if (!options.count_only) return write_combinations(choice, wanted_of(choice), context);
  context.show(combinations_head(choice.numbers.count, choice.size, Listing::absent));
  return ExitCode::ok;
}

}  // namespace

extern const Command combinations_command{
    "combinations", Group::bets, "List the ways to choose some of the numbers",
    "vestara combinations 5,12,33,40 --size 2\n\n"
    "The order is that of the numbers as they were given. The count is exact; in JSON it is a text when it\n"
    "is above 9223372036854775807. Ctrl-C ends the list behind a whole line, with exit code 130.",
    bound<add_combinations, run_combinations>};

}  // namespace vestara::host
