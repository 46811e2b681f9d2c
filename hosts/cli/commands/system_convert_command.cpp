#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/system_output.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/message_text.h"
#include "vestara/systems/start_numbers.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

struct SystemConvertOptions {
  std::string source;  ///< an id, or a file; "-" is standard input
  std::string numbers;
  std::string output;
};

void add_system_convert(CLI::App& app, SystemConvertOptions& options) {
  argument(app, "ID|FILE", options.source, "as in vestara system list, or a combination a line; - is stdin")
      ->required();
  value_option(app, "--numbers", options.numbers, "NUMBERS", "as many as the system has")->required();
  add_combination_output(app, options.output);
}

/// Which system is played with other numbers, and with which.
struct Conversion {
  int32_t id = 0;  ///< 0 for a file
  std::string file;
  NumberList numbers;
};

bool is_number(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

Conversion conversion_of(const SystemConvertOptions& options) {
  Conversion conversion{0, options.source, numbers_value({options.numbers})};
  if (is_number(options.source)) conversion.id = system_id(options.source);
  return conversion;
}

std::string name_of_system(const Conversion& conversion) {
  return conversion.id != 0 ? "system " + std::to_string(conversion.id) : "the system";
}

std::string combinations_to_convert(const Conversion& conversion, const Context& context) {
  if (conversion.id == 0) return read_system_file(conversion.file, context.err).combinations;
  const ArchiveSession session = context.open_archive();
  system_with_id(session, conversion.id);
  return stored_combinations(session, conversion.id).text;
}

/// Failure when the numbers are fewer or more than the system's.
std::string numbers_to_replace(const Conversion& conversion, const std::string& combinations) {
  std::string numbers = cSistemi().GetCombiNumbers(combinations);
  if (numbers.empty())
    throw Failure(FailureKind::database, name_of_system(conversion) + " cannot be converted, see " + log_path());
  const size_t count = length_of(numbers);
  if (count == conversion.numbers.count) return numbers;
  throw Failure(FailureKind::argument, name_of_system(conversion) + " has " + counted(count, "different number") +
                                           ", --numbers gives " + std::to_string(conversion.numbers.count) +
                                           "; give one for each of " + numbers);
}

ExitCode run_system_convert(const SystemConvertOptions& options, const Context& context) {
  const Conversion conversion = conversion_of(options);
  const std::string before = combinations_to_convert(conversion, context);
  if (before.empty()) return no_combinations(name_of_system(conversion), context);
  const std::string replaced = numbers_to_replace(conversion, before);
  std::string after;
  cSistemi().GetSisNumsConvert(before, conversion.numbers.text, after);
  if (after.empty())
    throw Failure(FailureKind::database, name_of_system(conversion) + " cannot be converted, see " + log_path());
  if (!options.output.empty()) {
    write_system_file(options.output, context.out, after);
    return ExitCode::ok;
  }
  Report report;
  report.facts = {{"numbers_before", replaced},
                  {"numbers", conversion.numbers.text},
                  {"count", static_cast<int64_t>(combination_lines(after).size())}};
  list_combinations(report, after);
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command system_convert_command{
    "convert", Group::bets, "Play a system with other numbers",
    "vestara system convert 1 --numbers 10,20,30 --output system.txt\n\n"
    "The first number stands for the smallest of the system, the second for the next one, and so on.\n"
    "Nothing is saved; vestara system save takes the file. A file whose name is a number: ./1",
    bound<add_system_convert, run_system_convert>};

}  // namespace vestara::host
