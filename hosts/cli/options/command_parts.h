#pragma once

#include <CLI/App.hpp>
#include <string>

// What the descriptions of all commands are made of.

namespace vestara::host {

/// An option with one value; given more than once, the last one counts.
CLI::Option* value_option(CLI::App& app, const std::string& name, std::string& place, const std::string& shape,
                          const std::string& help);
/// --from and --to.
void add_range(CLI::App& app, std::string& from, std::string& to);
/// --hits and --wheels.
void add_hits_and_wheels(CLI::App& app, std::string& hits, std::string& wheels);

/// A command of the program, or one of a group of commands. The help shows the example.
CLI::App& add_command(CLI::App& program, const std::string& name, const std::string& help, const std::string& example);
/// A command that only stands before others: `vestara draw show`.
CLI::App& add_group(CLI::App& program, const std::string& name, const std::string& help, const std::string& example);

/// "draw show": the name of a command behind the program's own.
std::string name_of(const CLI::App& command);
/// True for what only stands before other commands.
bool is_group(const CLI::App& command);
/// The command that was given, inside its group; null when there is none.
const CLI::App* given_command(const CLI::App& program);

}  // namespace vestara::host
