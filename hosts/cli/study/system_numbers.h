#pragma once

#include <string>

#include "hosts/cli/options/system_options.h"

namespace vestara::host {

/// A set of numbers that players start a system from, as "1,11,21". Empty when there is none.
std::string numbers_of_set(const SystemGenerateOptions& options);

/// Random numbers, as "1,11,21". Failure (interrupted) when somebody stops it.
std::string random_numbers(const SystemRandomOptions& options);

/// How many numbers a list names.
size_t length_of(std::string_view list);

}  // namespace vestara::host
