#include "automation/error.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/terminal/stoppable_call.h"
#include "vestara/foundation/message_text.h"
#include "vestara/systems/start_numbers.h"

namespace vestara::host {
namespace {

struct SystemRandomOptions {
  std::string count;
  std::string from = "1";
  std::string to = "90";
  bool repeat = false;
  bool sorted = false;
};

void add_system_random(CLI::App& app, SystemRandomOptions& options) {
  value_option(app, "--count", options.count, "K", "how many, up to 1000000")->required();
  value_option(app, "--from", options.from, "N", "smallest number, 0 or more (default 1)");
  value_option(app, "--to", options.to, "N", "largest number (default 90)");
  app.add_flag("--repeat", options.repeat, "a number may come again");
  app.add_flag("--sort", options.sorted, "in ascending order");
}

RandomQuestion random_question(const SystemRandomOptions& options) {
  constexpr int32_t most_numbers = 1000000;
  constexpr int32_t largest = (1 << 30) - 1;  // the library's largest range, less one
  const RandomQuestion question{whole_value("--count", options.count, 1, most_numbers),
                                whole_value("--from", options.from, 0, largest),
                                whole_value("--to", options.to, 0, largest), options.repeat, options.sorted};
  if (question.least > question.most)
    throw Failure(FailureKind::argument, "--from " + std::to_string(question.least) + " is larger than --to " +
                                             std::to_string(question.most) + "; the smaller number comes first");
  const int32_t range = question.most - question.least + 1;
  if (question.repeat || question.count <= range) return question;
  throw Failure(FailureKind::argument, "--count " + std::to_string(question.count) + ": from " +
                                           std::to_string(question.least) + " to " + std::to_string(question.most) +
                                           " there are " + counted(static_cast<size_t>(range), "different number") +
                                           "; give no more than that, or --repeat");
}

/// Failure (interrupted) when somebody stops it.
std::string drawn(const RandomQuestion& question) {
  const StoppableCall stoppable;
  try {
    return random_numbers(question);
  } catch (const automation::RunTimeError&) {
    if (!Interruption::requested()) throw;
    throw Failure(FailureKind::interrupted,
                  "interrupted before all of " + std::to_string(question.count) + " numbers were drawn");
  }
}

ExitCode run_system_random(const SystemRandomOptions& options, const Context& context) {
  show_numbers({}, drawn(random_question(options)), context);
  return ExitCode::ok;
}

}  // namespace

extern const Command system_random_command{"random", Group::bets, "Draw random numbers",
                                           "vestara system random --count 10 --sort",
                                           bound<add_system_random, run_system_random>};

}  // namespace vestara::host
