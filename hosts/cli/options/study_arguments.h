#pragma once

#include <CLI/App.hpp>
#include <string>

#include "hosts/cli/options/options.h"
#include "hosts/cli/options/search_question.h"

namespace vestara::host {

/// The texts behind `vestara distances`, `probability` and `combinations`, as they were given.
struct StudyArguments {
  SearchWords search;
  std::string count;
  std::string hits = "1";
  std::string wheels = "1";
  std::string size;
  std::string first;
  bool ascending = false;
  bool wheel_draws = false;
  bool plot = false;
  bool count_only = false;
};

void add_studies(CLI::App& program, StudyArguments& given);

// What the commands are asked for. Failure (usage).
DistancesOptions distances_options(const StudyArguments& given, OutputFormat format);
ProbabilityOptions probability_options(const StudyArguments& given);
CombinationsOptions combinations_options(const StudyArguments& given);

}  // namespace vestara::host
