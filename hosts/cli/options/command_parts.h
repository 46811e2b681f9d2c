#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "hosts/cli/terminal/confirmation.h"

// What the options of all commands are made of. Texts are kept as they were given and read when the command runs, so
// that --help and missing arguments come before wrong values.

namespace vestara::host {

/// A text without a name of its own, at its place: "FILE".
CLI::Option* argument(CLI::App& app, const std::string& name, std::string& place, const std::string& help);
/// All texts from there on.
CLI::Option* arguments(CLI::App& app, const std::string& name, std::vector<std::string>& place,
                       const std::string& help);
/// NUMBERS, which must be given: one list or several pieces, as for `numbers_value`.
void add_numbers(CLI::App& app, std::vector<std::string>& place);

/// An option with one value; given more than once, the last one counts.
CLI::Option* value_option(CLI::App& app, const std::string& name, std::string& place, const std::string& shape,
                          const std::string& help);
/// --from and --to.
void add_range(CLI::App& app, std::string& from, std::string& to);
/// --hits and --wheels.
void add_hits_and_wheels(CLI::App& app, std::string& hits, std::string& wheels);
/// --yes.
void add_yes(CLI::App& app, Consent& place, const std::string& help);

}  // namespace vestara::host
