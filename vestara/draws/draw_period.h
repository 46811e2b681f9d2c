#pragma once  // installed

#include <cstdint>
#include <optional>

namespace vestara {

/// Which draws a question is about. Days count from 1899-12-30; both bounds are included, none is no bound.
struct DrawPeriod {
  std::optional<int32_t> since;
  std::optional<int32_t> until;
};

/// Each wheel by itself, or all of them taken as one.
enum class WheelView : bool { each, together };

}  // namespace vestara
