#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vestara::host {

enum class NumberSet { twins, reversibles, ending, fibonacci, tens, figure };
enum class Reach : bool { library, plain };  ///< the library's list, or the one of 1 to 90 that players expect

struct SetQuestion {
  NumberSet set = NumberSet::twins;
  int16_t number = 0;  ///< 0 for twins and reversibles
  Reach reach = Reach::library;
};

struct RandomQuestion {
  int32_t count = 0;
  int32_t least = 1;
  int32_t most = 90;
  bool repeat = false;
  bool sorted = false;
};

/// A set of numbers that players start a system from, as "1,11,21". Empty when there is none.
std::string numbers_of_set(const SetQuestion& question);

/// Random numbers, as "1,11,21". Failure (interrupted) when somebody stops it.
std::string random_numbers(const RandomQuestion& question);

/// How many numbers a list names.
size_t length_of(std::string_view list);

}  // namespace vestara::host
