#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <string>
#include <string_view>

#include "hosts/cli/context.h"
#include "hosts/cli/failure.h"

// What the commands behind `vestara system` share.

namespace vestara::host {

/// ID, which must be given.
void add_system_id(CLI::App& app, std::string& place);
/// Failure (usage) when it is none.
int32_t system_id(const std::string& text);
/// "the saved system 7 with its 4 combinations". Failure (nothing_found) when no system is saved under this id.
std::string saved_system_in_words(const ArchiveSession& session, int32_t id);

/// A number that goes into 16 bits, from `least` on; 0 for a text that was not given. Failure (usage).
int16_t small_value(const std::string& option, const std::string& text, int32_t least);

/// --output: combinations go into a file, or to standard output as the file would have them.
void add_combination_output(CLI::App& app, std::string& place);
/// A listing of combinations, CR LF between them in the text.
void list_combinations(Report& report, std::string_view combinations);
/// Says that there are none in what `name` names.
ExitCode no_combinations(const std::string& name, const Context& context);

/// Shows a list of numbers as "1,11,21", behind the facts that the report has.
void show_numbers(Report report, const std::string& numbers, const Context& context);

}  // namespace vestara::host
