#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "hosts/cli/options/number_options.h"
#include "hosts/cli/output/output.h"

namespace vestara::host {

/// The texts behind `vestara delays`, `frequencies`, `table` and `gaps`, as they were given.
struct NumberArguments {
  std::vector<std::string> numbers;
  std::string wheels = "all";
  std::string wheel;
  std::string from;
  std::string to;
  std::string top;
  std::string as_of;
  bool grid = false;
  bool true_ranking = false;
  bool average = false;
  bool all_levels = false;
  bool per_wheel = false;
  bool number_totals = false;
  bool all = false;
  bool without_national = false;
  bool plot = false;
};

void add_number_studies(CLI::App& program, NumberArguments& given);

// What the commands are asked for. Failure (usage).
DelaysOptions delays_options(const NumberArguments& given);
FrequenciesOptions frequencies_options(const NumberArguments& given);
TableOptions table_options(const NumberArguments& given);
GapsOptions gaps_options(const NumberArguments& given, OutputFormat format);

}  // namespace vestara::host
