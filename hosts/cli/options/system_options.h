#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/study/system_numbers.h"
#include "hosts/cli/terminal/confirmation.h"

// What the commands behind `vestara system` are asked for, checked. An empty output is no file.

namespace vestara::host {

struct SystemIntegralOptions {
  NumberList numbers;
  int32_t size = 0;  ///< 1 to as many as there are numbers
  bool count_only = false;
  std::string output;
};

struct SystemSaveOptions {
  std::string file;  ///< "-" is standard input
  std::string title;
  std::string description;
  std::optional<int16_t> bets;  ///< without it, one for each combination
  int16_t guarantee = 0;
  int32_t replaced = 0;  ///< the system in whose place it comes; 0 for none
  Consent consent = Consent::ask;
};

struct SystemShowOptions {
  int32_t id = 0;
  std::optional<NumberList> numbers;  ///< to stand where the system has positions
  std::string output;
};

struct SystemConvertOptions {
  int32_t id = 0;    ///< 0 for a file
  std::string file;  ///< "-" is standard input
  NumberList numbers;
  std::string output;
};

struct SystemDeleteOptions {
  int32_t id = 0;
  Consent consent = Consent::ask;
};

using SystemOptions = std::variant<SetQuestion, RandomQuestion, SystemIntegralOptions, SystemSaveOptions, SystemFilter,
                                   SystemShowOptions, SystemConvertOptions, SystemDeleteOptions>;

}  // namespace vestara::host
