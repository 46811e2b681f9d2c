#include <algorithm>
#include <optional>

#include "automation/coercion.h"
#include "automation/text.h"
#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/commands/system_catalogue.h"
#include "hosts/cli/output/system_output.h"
#include "hosts/cli/study/system_numbers.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/message_text.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

void add_combinations(Report& report, std::string_view combinations) {
  report.listing = "combinations";
  report.row_kind = "combination";
  report.columns = {"combination"};
  for (const std::string_view line : combination_lines(combinations)) report.rows.push_back({std::string(line)});
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
StoredCombinations played(const ArchiveSession& session, const SystemShowOptions& options, const StoredSystem& system) {
  StoredCombinations stored = stored_combinations(session, options.id);
  if (!options.numbers) return stored;
  const std::string name = "system " + std::to_string(options.id);
  if (system.kind == Cell("S"))
    throw Failure(ExitCode::usage, name + " is of kind S and has no positions; leave --numbers out");
  const auto largest = static_cast<size_t>(largest_position(stored.text));
  if (largest > options.numbers->count)
    throw Failure(ExitCode::usage, name + " has positions up to " + std::to_string(largest) + ", --numbers gives " +
                                       counted(options.numbers->count, "number") +
                                       "; give one for each position, or see vestara system convert");
  return stored_combinations(session, options.id, options.numbers->text);
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
  add_combinations(report, combinations.text);
  return report;
}

ExitCode no_combinations(const std::string& name, const Context& context) {
  context.err << "vestara: " << name << " holds no combinations\n";
  return ExitCode::nothing_found;
}

std::string name_of_system(const SystemConvertOptions& options) {
  return options.id != 0 ? "system " + std::to_string(options.id) : "the system";
}

std::string combinations_to_convert(const SystemConvertOptions& options, const Context& context) {
  if (options.id == 0) return read_system_file(options.file, context.err).combinations;
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  system_with_id(session, options.id);
  return stored_combinations(session, options.id).text;
}

/// Failure when the numbers are fewer or more than the system's.
std::string numbers_to_replace(const SystemConvertOptions& options, const std::string& combinations) {
  std::string numbers = cSistemi().GetCombiNumbers(combinations);
  if (numbers.empty())
    throw Failure(ExitCode::database, name_of_system(options) + " cannot be converted, see " + log_path());
  const size_t count = length_of(numbers);
  if (count == options.numbers.count) return numbers;
  throw Failure(ExitCode::usage, name_of_system(options) + " has " + counted(count, "different number") +
                                     ", --numbers gives " + std::to_string(options.numbers.count) +
                                     "; give one for each of " + numbers);
}

}  // namespace

ExitCode run_system_show(const SystemShowOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const StoredSystem system = system_with_id(session, options.id);
  const StoredCombinations combinations = played(session, options, system);
  if (options.output.empty())
    write_report(context.out, report_of(system, combinations, options.numbers), context.style());
  else if (combinations.count == 0)
    return no_combinations("system " + std::to_string(options.id), context);
  else
    write_system_file(options.output, context.out, combinations.text);
  return ExitCode::ok;
}

ExitCode run_system_convert(const SystemConvertOptions& options, const Context& context) {
  const std::string before = combinations_to_convert(options, context);
  if (before.empty()) return no_combinations(name_of_system(options), context);
  const std::string replaced = numbers_to_replace(options, before);
  std::string after;
  cSistemi().GetSisNumsConvert(before, options.numbers.text, after);
  if (after.empty())
    throw Failure(ExitCode::database, name_of_system(options) + " cannot be converted, see " + log_path());
  if (!options.output.empty()) {
    write_system_file(options.output, context.out, after);
    return ExitCode::ok;
  }
  Report report;
  report.facts = {{"numbers_before", replaced},
                  {"numbers", options.numbers.text},
                  {"count", static_cast<int64_t>(combination_lines(after).size())}};
  add_combinations(report, after);
  write_report(context.out, report, context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
