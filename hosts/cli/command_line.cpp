#include "hosts/cli/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <map>
#include <string>
#include <vector>

#include "hosts/cli/commands/commands.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/programming/near_names.h"
#include "hosts/cli/version.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

/// The settings as they were given.
struct SettingWords {
  std::string database;
  std::string format = "table";
  std::string colour = "auto";
};

/// What is to be done when a command is the one that was given.
using Runs = std::map<const CLI::App*, Run>;

/// The heading of a group in the help.
std::string heading_of(Group group) {
  constexpr std::array headings{"Draws", "Questions", "Bets", "Archive", "Programming"};
  return headings.at(static_cast<size_t>(group));
}

CLI::App& add_command(CLI::App& parent, const Command& command, Runs& runs) {
  CLI::App& app = *parent.add_subcommand(std::string(command.name), std::string(command.help));
  app.fallthrough();
  app.footer("Example:\n  " + std::string(command.example) +
             "\n\nEvery command also takes --db, --format and --color: vestara --help");
  if (command.bind) runs[&app] = command.bind(app);
  if (!command.inner.empty()) app.require_subcommand(1);
  for (const Command* inner : command.inner) add_command(app, *inner, runs).group("Subcommands");
  return app;
}

void describe_program(CLI::App& program, SettingWords& words, Runs& runs) {
  program.set_version_flag("--version", "vestara " + std::string(program_version), "print the version");
  value_option(program, "--db", words.database, "URL",
               "the archive, as in sqlite:PATH; else VESTARA_DB, else a file in the user's data folder");
  value_option(program, "--format", words.format, "FORMAT", "table (default), csv, json, jsonl or markdown");
  value_option(program, "--color", words.colour, "WHEN", "auto (default), always or never; auto minds NO_COLOR");
  program.require_subcommand(1);
  for (const Command* command : commands()) add_command(program, *command, runs).group(heading_of(command->group));
  program.footer(
      "Example:\n  vestara import storico.zip && vestara search 53 --wheels VE\n\n"
      "Exit codes: 0 ok, 1 nothing found or an error raised, 2 usage, 3 database, 4 file, 130 interrupted");
}

/// The command that was given, innermost; null when there is none.
const CLI::App* given_command(const CLI::App& program) {
  const auto given = program.get_subcommands();
  if (given.empty()) return nullptr;
  const CLI::App* inner = given_command(*given.front());
  return inner ? inner : given.front();
}

/// "draw show": the name of a command behind the program's own.
std::string name_of(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  if (!parent || !parent->get_parent()) return command.get_name();
  return name_of(*parent) + " " + command.get_name();
}

/// The names of the commands that one stands before; none when it stands before no others.
std::vector<std::string> names_behind(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::App* inner : command.get_subcommands([](const CLI::App*) { return true; }))
    names.push_back(inner->get_name());
  return names;
}

/// "--hits, --wheels, …, --db, --format, --color"
std::string names_of_options(const CLI::App& program, const CLI::App* command) {
  std::vector<std::string> names;
  for (const CLI::App* app : {command, &program}) {
    if (!app) continue;
    for (const CLI::Option* option : app->get_options())
      if (option->nonpositional() && option != app->get_help_ptr()) names.push_back(option->get_name());
  }
  return name_list(names);
}

Failure unknown_command(const std::string& name, const std::vector<std::string>& known) {
  const std::string near = near_names(name, known);
  return {FailureKind::argument, "command " + shown(name) + " is unknown; known are " + name_list(known) +
                                     (near.empty() ? "" : "\ndid you mean " + near + "?")};
}

Failure unexpected(const CLI::App& program, const CLI::App* command, const std::string& argument) {
  const bool is_option = argument.size() > 1 && argument.front() == '-';
  if (is_option)
    return {FailureKind::argument,
            "option " + shown(argument) + " is unknown here; known are " + names_of_options(program, command)};
  const CLI::App& place = command ? *command : program;
  const std::vector<std::string> known = names_behind(place);
  if (!known.empty()) return unknown_command(argument, known);
  return {FailureKind::argument,
          "argument " + shown(argument) + " is one too many; see vestara " + name_of(place) + " --help"};
}

Failure usage_failure(const CLI::App& program, const CLI::ParseError& error) {
  const CLI::App* command = given_command(program);
  const auto rest = program.remaining(true);
  if (!rest.empty()) return unexpected(program, command, rest.front());
  const CLI::App& place = command ? *command : program;
  const std::vector<std::string> known = names_behind(place);
  if (!known.empty()) return {FailureKind::argument, "no command was given; commands are " + name_list(known)};
  return {FailureKind::argument, std::string(error.what()) + "; see vestara " + name_of(place) + " --help"};
}

/// A text that was asked for: the help or the version.
Request text_request(const std::string& text) {
  return {{}, [text](const Context& context) {
            context.out << text;
            return ExitCode::ok;
          }};
}

}  // namespace

Request parse_command_line(int argc, const char* const* argv) {
  CLI::App program("Keeps and studies the archive of the Italian Lotto", "vestara");
  SettingWords words;
  Runs runs;
  describe_program(program, words, runs);
  try {
    program.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return text_request(program.help());
  } catch (const CLI::CallForVersion& version) {
    return text_request(std::string(version.what()) + "\n");
  } catch (const CLI::ParseError& error) {
    throw usage_failure(program, error);
  }
  return {{words.database, output_format(words.format), colour_choice(words.colour)}, runs.at(given_command(program))};
}

}  // namespace vestara::host
