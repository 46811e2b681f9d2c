#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "automation/coercion.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/output/combinations_head.h"
#include "hosts/cli/output/number_stream.h"
#include "hosts/cli/terminal/interruption.h"
#include "hosts/cli/terminal/progress_bar.h"
#include "vestara/statistics/combinations.h"

namespace vestara::host {
namespace {

std::vector<int32_t> values_of(const NumberList& numbers) {
  std::vector<int32_t> values;
  for (const std::string_view piece : automation::split(numbers.text, ','))
    values.push_back(automation::leading_number(piece));
  return values;
}

/// How many are going to be listed. Failure (usage) for more than a collection could hold, unless so many were asked
/// for.
uint64_t wanted_of(const CombinationsOptions& options) {
  const ExactCount count = combination_count(options.numbers.count, options.size);
  if (options.first) return count < *options.first ? static_cast<uint64_t>(count) : *options.first;
  if (count <= static_cast<uint32_t>(std::numeric_limits<int32_t>::max())) return static_cast<uint64_t>(count);
  throw Failure(ExitCode::usage, std::to_string(options.size) + " of " + std::to_string(options.numbers.count) +
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

ExitCode write_combinations(const CombinationsOptions& options, uint64_t wanted, const Context& context) {
  const std::vector<int32_t> values = values_of(options.numbers);
  NumberStream stream(context.out, combinations_head(options.numbers.count, options.size, Listing::follows),
                      context.style(), *std::max_element(values.begin(), values.end()));
  const Interruption interruption;
  uint64_t listed = 0;
  {
    // The lines themselves show how far it is where a person sees them.
    std::optional<ProgressBar> progress;
    if (!is_terminal(context.out)) progress.emplace(context.err, "combinations");
    CombinationWalk walk(static_cast<int32_t>(values.size()), options.size);
    listed = list(values, wanted, stream, progress ? &*progress : nullptr, walk);
  }
  if (listed == wanted || !Interruption::requested()) {
    stream.finish();
    return ExitCode::ok;
  }
  stream.break_off();
  throw Failure(ExitCode::interrupted,
                "interrupted after " + std::to_string(listed) + " of " + std::to_string(wanted) + " combinations");
}

}  // namespace

ExitCode run_combinations(const CombinationsOptions& options, const Context& context) {
  if (!options.count_only) return write_combinations(options, wanted_of(options), context);
  write_report(context.out, combinations_head(options.numbers.count, options.size, Listing::absent), context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
