#pragma once

#include <cstdint>

#include "hosts/cli/commands.h"

namespace vestara::host {

/// Bytes of the text that the library makes of `count` combinations: each number stands in the same share of them.
uint64_t integral_text_size(const NumberList& numbers, int32_t size, uint64_t count);

/// Failure (usage) for what the library cannot list, or only in more memory than is sane.
void check_integral(const SystemIntegralOptions& options);

ExitCode run_integral(const SystemIntegralOptions& options, const Context& context);

}  // namespace vestara::host
