#pragma once

#include <CLI/App.hpp>
#include <array>
#include <string>

#include "hosts/cli/options/options.h"

namespace vestara::host {

/// The texts behind `vestara draw`, as they were given.
struct DrawArguments {
  std::string date;
  std::string back;
  std::string contest;
  std::string numbers;
  std::string file;
  std::array<std::string, 11> wheels;  ///< by enumerator, from 0
  bool yes = false;
};

void add_draw(CLI::App& program, DrawArguments& given);

/// What the command ("show") is asked for. Failure (usage).
DrawOptions draw_options(const std::string& command, const DrawArguments& given);

}  // namespace vestara::host
