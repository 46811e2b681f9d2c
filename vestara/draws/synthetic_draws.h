#pragma once  // for hosts

#include <cstdint>
#include <functional>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// Made-up draws on the real calendar, by date and wheel, the same on every platform. A seed gives a date the same draw
/// whatever the bounds (days since 1899-12-30, both included). Ends early when `take` returns false.
VESTARA_API void synthetic_draws(uint64_t seed, int32_t from, int32_t to,
                                 const std::function<bool(const DrawRow&)>& take);

}  // namespace vestara
