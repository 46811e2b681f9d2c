#pragma once

#include <cstdint>
#include <string>

#include "hosts/cli/output/output.h"

namespace vestara::host {

__extension__ typedef unsigned __int128 ExactCount;  // NOLINT(modernize-use-using): the extension wants a typedef

/// How many ways there are to choose `chosen` of `items` things, to the last digit. `items` is 90 at most.
ExactCount ways_to_choose(int32_t items, int32_t chosen);

std::string digits_of(ExactCount count);
/// A number, or its digits as text when it does not fit in 64 bits with a sign.
Cell count_cell(ExactCount count);

}  // namespace vestara::host
