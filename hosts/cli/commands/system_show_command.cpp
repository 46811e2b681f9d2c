#include <algorithm>
#include <optional>

#include "automation/coercion.h"
#include "automation/text.h"
#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/system_output.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

struct SystemShowOptions {
  std::string id;
  std::string numbers;  ///< to stand where the system has positions
  std::string output;
};

void add_system_show(CLI::App& app, SystemShowOptions& options) {
  add_system_id(app, options.id);
  value_option(app, "--numbers", options.numbers, "NUMBERS", "to stand where the system has positions");
  add_combination_output(app, options.output);
}

/// The largest position of a system, 0 when it has none.
int32_t largest_position(std::string_view combinations) {
  int32_t largest = 0;
  for (const std::string_view line : combination_lines(combinations))
    for (const std::string_view element : automation::split(line, ','))
      largest = std::max(largest, static_cast<int32_t>(std::clamp(automation::leading_double(element), 0.0, 1e9)));
  return largest;
}

/// The combinations with numbers in place of positions. Failure (usage) when that cannot be.
StoredCombinations played(const ArchiveSession& session, int32_t id, const StoredSystem& system,
                          const std::optional<NumberList>& numbers) {
  StoredCombinations stored = stored_combinations(session, id);
  if (!numbers) return stored;
  const std::string name = "system " + std::to_string(id);
  if (system.kind == Cell("S"))
    throw Failure(FailureKind::argument, name + " is of kind S and has no positions; leave --numbers out");
  const auto largest = static_cast<size_t>(largest_position(stored.text));
  if (largest > numbers->count)
    throw Failure(FailureKind::argument, name + " has positions up to " + std::to_string(largest) +
                                             ", --numbers gives " + counted(numbers->count, "number") +
                                             "; give one for each position, or see vestara system convert");
  return stored_combinations(session, id, numbers->text);
}

Report report_of(const StoredSystem& system, const StoredCombinations& combinations,
                 const std::optional<NumberList>& numbers) {
  Report report;
  report.facts = {{"id", system.id},
                  {"title", system.title},
                  {"description", system.description},
                  {"kind", system.kind},
                  {"numbers", system.numbers},
                  {"number_count", system.number_count},
                  {"size", system.size},
                  {"bets", system.bets},
                  {"guarantee", system.guarantee},
                  {"count", static_cast<int64_t>(combinations.count)}};
  if (numbers) report.facts.push_back({"played_with", numbers->text});
  list_combinations(report, combinations.text);
  return report;
}

ExitCode run_system_show(const SystemShowOptions& options, const Context& context) {
  const int32_t id = system_id(options.id);
  std::optional<NumberList> numbers;
  if (!options.numbers.empty()) numbers = numbers_value({options.numbers});
  const ArchiveSession session = context.open_archive();
  const StoredSystem system = system_with_id(session, id);
  const StoredCombinations combinations = played(session, id, system, numbers);
  if (options.output.empty())
    context.show(report_of(system, combinations, numbers));
  else if (combinations.count == 0)
    return no_combinations("system " + std::to_string(id), context);
  else
    write_system_file(options.output, context.out, combinations.text);
  return ExitCode::ok;
}

}  // namespace

extern const Command system_show_command{
    "show", Group::bets, "Show a system and its combinations",
    "vestara system show 1 --numbers 10,20,30 --output system.txt\n\n"
    "--numbers is for systems whose combinations are positions: the first number stands for 1, the\n"
    "second for 2. A system of kind S holds the numbers themselves.",
    bound<add_system_show, run_system_show>};

}  // namespace vestara::host
