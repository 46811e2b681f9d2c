#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "hosts/cli/options/option_values.h"
#include "hosts/cli/terminal/confirmation.h"

// What the commands behind `vestara system` are asked for, checked. An empty output is no file.

namespace vestara::host {

enum class NumberSet { twins, reversibles, ending, fibonacci, tens, figure };
enum class Reach : bool { library, plain };  ///< the library's list, or the one of 1 to 90 that players expect

struct SystemGenerateOptions {
  NumberSet set = NumberSet::twins;
  int16_t number = 0;  ///< 0 for twins and reversibles
  Reach reach = Reach::library;
};

struct SystemRandomOptions {
  int32_t count = 0;
  int32_t least = 1;
  int32_t most = 90;
  bool repeat = false;
  bool sorted = false;
};

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

/// An empty text and 0 do not filter.
struct SystemListOptions {
  std::string title;        ///< found anywhere in the title
  std::string description;  ///< the same
  std::string kind;
  int16_t numbers = 0;
  int16_t size = 0;
  int16_t bets = 0;
  int16_t guarantee = 0;
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

using SystemOptions = std::variant<SystemGenerateOptions, SystemRandomOptions, SystemIntegralOptions, SystemSaveOptions,
                                   SystemListOptions, SystemShowOptions, SystemConvertOptions, SystemDeleteOptions>;

}  // namespace vestara::host
