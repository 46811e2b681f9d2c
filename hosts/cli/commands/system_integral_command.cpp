#include <algorithm>
#include <vector>

#include "automation/coercion.h"
#include "automation/text.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_integral.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/output/combinations_head.h"
#include "hosts/cli/output/number_stream.h"
#include "hosts/cli/output/system_output.h"
#include "hosts/cli/terminal/stoppable_call.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/systems/integral.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

struct SystemIntegralOptions {
  std::vector<std::string> numbers;
  std::string size;
  bool count_only = false;
  std::string output;
};

void add_system_integral(CLI::App& app, SystemIntegralOptions& options) {
  add_numbers(app, options.numbers);
  value_option(app, "--size", options.size, "K", "numbers in a combination")->required();
  app.add_flag("--count-only", options.count_only, "say how many there are");
  add_combination_output(app, options.output);
}

IntegralSystem system_of(const SystemIntegralOptions& options) {
  IntegralSystem system{numbers_value(options.numbers), whole_value("--size", options.size, 1, number_count)};
  check_size(system.numbers, system.size);
  if (options.count_only && !options.output.empty())
    throw Failure(FailureKind::argument, "--count-only and --output exclude each other; give one of them");
  return system;
}

Failure interrupted(uint64_t listed, uint64_t wanted) {
  return {FailureKind::interrupted,
          "interrupted after " + std::to_string(listed) + " of " + std::to_string(wanted) + " combinations"};
}

std::string text_of(const IntegralSystem& system, uint64_t wanted) {
  int32_t count = 0;
  std::string text =
      cSistemi().CombinazioniIntegraliString(system.numbers.text, static_cast<int16_t>(system.size), count);
  if (!text.empty() && static_cast<uint64_t>(count) == wanted) return text;
  if (Interruption::requested()) throw interrupted(0, wanted);
  throw Failure(FailureKind::nothing_found, "the combinations could not be made, see " + log_path());
}

int32_t widest_of(const NumberList& numbers) {
  int32_t widest = 0;
  for (const std::string_view piece : automation::split(numbers.text, ','))
    widest = std::max(widest, int32_t{automation::leading_number(piece)});
  return widest;
}

void read_line(std::string_view line, std::vector<int32_t>& row) {
  row.clear();
  for (const std::string_view piece : automation::split(line, ',')) row.push_back(automation::leading_number(piece));
}

void list(std::string_view text, uint64_t wanted, NumberStream& stream) {
  std::vector<int32_t> row;
  for (uint64_t listed = 0; !text.empty(); ++listed) {
    if (Interruption::requested()) {
      stream.break_off();
      throw interrupted(listed, wanted);
    }
    const std::string_view line = text.substr(0, text.find(line_break));
    text.remove_prefix(std::min(line.size() + line_break.size(), text.size()));
    read_line(line, row);
    if (!stream.add(row)) return;
  }
  stream.finish();
}

ExitCode run_system_integral(const SystemIntegralOptions& options, const Context& context) {
  const IntegralSystem system = system_of(options);
  const size_t numbers = system.numbers.count;
  if (options.count_only) {
    context.show(combinations_head(numbers, system.size, Listing::absent));
    return ExitCode::ok;
  }
  check_integral(system);
  const auto wanted = static_cast<uint64_t>(combination_count(numbers, system.size));
  const StoppableCall stoppable;
  const std::string text = text_of(system, wanted);
  if (!options.output.empty()) {
    write_system_file(options.output, context.out, text);
    return ExitCode::ok;
  }
  NumberStream stream(context.out, combinations_head(numbers, system.size, Listing::follows), context.style(),
                      widest_of(system.numbers));
  list(text, wanted, stream);
  return ExitCode::ok;
}

}  // namespace

extern const Command system_integral_command{
    "integral", Group::bets, "List all ways to choose some of the numbers",
    "vestara system integral 5,7,9,11 --size 3 --output system.txt\n\n"
    "The library makes the whole text before the first line is written: at most 12 numbers in a\n"
    "combination and 1 GiB of text. vestara combinations has no such limits. Ctrl-C ends it with\n"
    "exit code 130.",
    bound<add_system_integral, run_system_integral>};

}  // namespace vestara::host
