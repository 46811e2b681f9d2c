#pragma once  // for hosts

#include <cstdint>
#include <string>

#include "vestara/foundation/export.h"

namespace vestara {

__extension__ typedef unsigned __int128 ExactCount;  // NOLINT(modernize-use-using): the extension wants a typedef

/// How many ways there are to choose `chosen` of `items` things, to the last digit. `items` is 90 at most.
VESTARA_API ExactCount ways_to_choose(int32_t items, int32_t chosen);

VESTARA_API std::string digits_of(ExactCount count);
}  // namespace vestara
