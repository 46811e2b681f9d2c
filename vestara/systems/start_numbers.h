#pragma once  // for hosts

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "vestara/foundation/export.h"

namespace vestara {

/// A set of numbers that players start a system from.
enum class NumberSet { twins, reversibles, ending, fibonacci, tens, figure };
/// The set as cSistemi lists it, or the one of 1 to 90 that players expect.
enum class Reach : bool { library, plain };

struct SetQuestion {
  NumberSet set = NumberSet::twins;
  int16_t number = 0;  ///< 0 for twins and reversibles
  Reach reach = Reach::library;
};

/// The numbers of a set, as "1,11,21"; empty when there is none.
VESTARA_API std::string numbers_of_set(const SetQuestion& question);

struct RandomQuestion {
  int32_t count = 0;
  int32_t least = 1;
  int32_t most = 90;
  bool repeat = false;
  bool sorted = false;
};

/// Random numbers, as "1,11,21". Raises what `random_series` raises, and what the host raises to end it.
VESTARA_API std::string random_numbers(const RandomQuestion& question);

/// How many numbers a list names.
VESTARA_API size_t length_of(std::string_view list);

}  // namespace vestara
