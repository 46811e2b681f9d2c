#pragma once

#include <CLI/App.hpp>
#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "hosts/cli/context.h"
#include "hosts/cli/failure.h"

namespace vestara::host {

/// Where `vestara --help` lists a command, in this order.
enum class Group { draws, questions, bets, archive, programming };

/// What a command does once its words were read. Failure when it cannot be done.
using Run = std::function<ExitCode(const Context&)>;

/// A command: `vestara doctor`, or `vestara draw show` under `vestara draw`. Each is a constant in a file of its own in
/// hosts/cli/commands and becomes part of the program by its line in commands.cpp.
struct Command {
  std::string_view name;
  Group group;
  std::string_view help;     ///< one line
  std::string_view example;  ///< a whole command line, and after an empty line what else there is to know
  /// Adds the options and says what is done with them, see `bound`; null for a command that only stands before others.
  Run (*bind)(CLI::App& app);
  std::span<const Command* const> inner = {};  ///< the commands that it stands before
};

/// Options that the command line fills, and what is done with them.
template <class Options>
Run bound_to(CLI::App& app, void (*add_options)(CLI::App&, Options&), ExitCode (*run)(const Options&, const Context&)) {
  const auto options = std::make_shared<Options>();
  add_options(app, *options);
  return [options, run](const Context& context) { return run(*options, context); };
}

/// A command's two functions as its `bind`: void add_options(CLI::App&, Options&) and
/// ExitCode run(const Options&, const Context&), with the same structure of options, which is new for each call.
template <auto add_options, auto run>
Run bound(CLI::App& app) {
  return bound_to(app, add_options, run);
}

/// The same for a command without options.
template <ExitCode (*run)(const Context&)>
Run bound(CLI::App&) {
  return run;
}

}  // namespace vestara::host
