#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "hosts/cli/options/system_options.h"

namespace vestara::host {

/// The texts behind `vestara system`, as they were given; options that share a name share their place.
struct SystemArguments {
  std::string set;
  std::string set_number;
  std::string count;
  std::string from = "1";
  std::string to = "90";
  std::vector<std::string> numbers;
  std::string size;
  std::string source;  ///< FILE, or ID|FILE
  std::string title;
  std::string description;
  std::string kind;
  std::string bets;
  std::string guarantee;
  std::string id;
  std::string replacing;
  std::string chosen;  ///< --numbers
  std::string output;
  bool strict = false;
  bool repeat = false;
  bool sorted = false;
  bool count_only = false;
  bool yes = false;
};

void add_system(CLI::App& program, SystemArguments& given);

/// What the command ("list") is asked for. Failure (usage).
SystemOptions system_options(const std::string& command, const SystemArguments& given);

}  // namespace vestara::host
