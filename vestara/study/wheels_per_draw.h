#pragma once  // for hosts

#include <array>
#include <cstdint>

#include "vestara/draws/draw_range.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// How many of the wheels of a search were drawn at a time: eight in the draws of 1874, eleven today. Two contests of a
/// date are two draws.
class VESTARA_API WheelsPerDraw {
 public:
  /// Index: wheels drawn. Value: draws with so many.
  using Draws = std::array<int64_t, wheel_count + 1>;

  /// Reads those of a range. A wheel whose row lacks numbers was not drawn.
  WheelsPerDraw(const Archive& archive, const DrawRange& range);
  explicit WheelsPerDraw(const Draws& draws) : draws_(draws) {}

  /// Draws in which one of the wheels was drawn.
  int64_t draws() const;
  /// Wheels of all those draws: the rows that the search looks at.
  int64_t wheels() const;
  /// How many draws chance would make a hit of, when a bet of `numbers` numbers wins with `hits` of them on one wheel.
  double expected_hits(int16_t numbers, int16_t hits) const;

 private:
  Draws draws_;
};

}  // namespace vestara
