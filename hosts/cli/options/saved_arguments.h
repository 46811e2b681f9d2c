#pragma once

#include <CLI/App.hpp>
#include <string>

#include "hosts/cli/options/options.h"
#include "hosts/cli/options/search_question.h"

namespace vestara::host {

/// The texts behind `vestara saved`, as they were given.
struct SavedArguments {
  std::string id;
  std::string name;
  SearchWords search;
  bool yes = false;
};

void add_saved(CLI::App& program, SavedArguments& given);

/// What the command ("list") is asked for. Failure (usage).
SavedOptions saved_options(const std::string& command, const SavedArguments& given);

}  // namespace vestara::host
