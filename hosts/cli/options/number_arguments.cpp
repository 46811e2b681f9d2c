#include "hosts/cli/options/number_arguments.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/options/option_values.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara::host {
namespace {

using GivenOption = std::pair<const char*, bool>;

/// Refuses options that were given and that `reason` rules out.
void refuse(const std::string& with, std::initializer_list<GivenOption> options, const std::string& reason) {
  for (const auto& [name, given] : options)
    if (given)
      throw Failure(ExitCode::usage, std::string(name).append(" does not go with ").append(with + "; ").append(reason));
}

DrawRange draw_range(const NumberArguments& given) {
  DrawRange range{wheels_value(given.wheels), day_bound("--from", given.from), day_bound("--to", given.to)};
  check_range(range.from, range.to);
  return range;
}

size_t top_value(const NumberArguments& given) {
  constexpr int32_t most = wheel_count * number_count;
  if (given.top.empty()) return most;
  return static_cast<size_t>(whole_value("--top", given.top, 1, most));
}

int16_t wheel_value(const std::string& text) {
  if (const auto wheel = wheel_named(text)) return *wheel;
  throw Failure(ExitCode::usage, "--wheel " + shown(text) + " is not known; wheels are " + wheel_choices() +
                                     "; without it, all of them together");
}

/// One number, or two in ascending order.
std::vector<int16_t> number_or_pair(const NumberList& list) {
  if (list.count > 2)
    throw Failure(ExitCode::usage, "NUMBERS: these are " + std::to_string(list.count) +
                                       "; distances are kept of single numbers and of pairs, give one or two");
  std::vector<int16_t> numbers;
  for (const std::string_view number : automation::split(list.text, ','))
    numbers.push_back(static_cast<int16_t>(std::stoi(std::string(number))));
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace

DelaysOptions delays_options(const NumberArguments& given) {
  if (given.grid)
    refuse("--grid", {{"--top", !given.top.empty()}, {"--true-ranking", given.true_ranking}}, "a grid has no order");
  return {draw_range(given), given.true_ranking ? Ranked::in_full : Ranked::by_library,
          given.grid ? Shown::grid : Shown::ranking, top_value(given)};
}

FrequenciesOptions frequencies_options(const NumberArguments& given) {
  if (given.grid)
    refuse("--grid",
           {{"--top", !given.top.empty()}, {"--all-levels", given.all_levels}, {"--numbers", given.number_totals}},
           "a grid has every number of every wheel");
  if (given.number_totals)
    refuse("--numbers", {{"--average", given.average}, {"--all-levels", given.all_levels}},
           "it lists the counts of all numbers");
  if (!given.average && given.per_wheel)
    throw Failure(ExitCode::usage, "--per-wheel goes with --average only; counts are those of the wheel anyway");
  const Counted counted = given.per_wheel ? Counted::percent_of_wheel
                          : given.average ? Counted::percent
                                          : Counted::times;
  return {draw_range(given),
          counted,
          given.all_levels ? Ranked::in_full : Ranked::by_library,
          given.grid ? Shown::grid : Shown::ranking,
          given.number_totals,
          top_value(given)};
}

TableOptions table_options(const NumberArguments& given) {
  return {given.per_wheel, day_bound("--as-of", given.as_of)};
}

GapsOptions gaps_options(const NumberArguments& given, OutputFormat format) {
  GapsOptions options;
  options.question.numbers = number_or_pair(numbers_value(given.numbers));
  if (!given.wheel.empty()) {
    refuse("--wheel", {{"--all", given.all}, {"--without-rn", given.without_national}}, "it names the only one");
    options.question.wheel = wheel_value(given.wheel);
  }
  if (given.plot && format != OutputFormat::table)
    throw Failure(ExitCode::usage,
                  "--plot goes with --format table only; the other forms carry the distances themselves");
  options.question.without_national = given.without_national;
  options.question.from = day_bound("--from", given.from);
  options.question.to = day_bound("--to", given.to);
  check_range(options.question.from, options.question.to);
  options.plot = given.plot;
  return options;
}

}  // namespace vestara::host
