#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "hosts/cli/study/number_gaps.h"
#include "vestara/draws/draw_range.h"

// What `vestara delays`, `frequencies`, `table` and `gaps` are asked for, checked. Days count from 1899-12-30.

namespace vestara::host {

enum class Ranked : bool { by_library, in_full };  ///< the library's list, or every pair sorted
enum class Shown : bool { ranking, grid };

struct DelaysOptions {
  DrawRange draws;
  Ranked ranked = Ranked::by_library;
  Shown shown = Shown::ranking;
  size_t top = std::numeric_limits<size_t>::max();
};

enum class Counted { times, percent, percent_of_wheel };  ///< percent: in a hundred draws

struct FrequenciesOptions {
  DrawRange draws;
  Counted counted = Counted::times;
  Ranked ranked = Ranked::by_library;
  Shown shown = Shown::ranking;
  bool numbers = false;  ///< over the wheels together
  size_t top = std::numeric_limits<size_t>::max();
};

struct TableOptions {
  bool wheel_draws = false;
  std::optional<int32_t> as_of;  ///< today, without it
};

struct GapsOptions {
  GapQuestion question;
  bool plot = false;
};

}  // namespace vestara::host
