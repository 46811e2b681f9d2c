#pragma once

#include <cstdint>

#include "hosts/cli/options/option_values.h"

namespace vestara::host {

/// All ways to choose so many of the numbers.
struct IntegralSystem {
  NumberList numbers;
  int32_t size = 0;  ///< 1 to as many as there are numbers
};

/// Bytes of the text that the library makes of `count` combinations: each number stands in the same share of them.
uint64_t integral_text_size(const IntegralSystem& system, uint64_t count);

/// Failure (usage) for what the library cannot list, or only in more memory than is sane.
void check_integral(const IntegralSystem& system);

}  // namespace vestara::host
