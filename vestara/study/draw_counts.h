#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "vestara/draws/draw_sequence.h"
#include "vestara/foundation/export.h"

namespace vestara::study {

inline constexpr int32_t gap_class_width = 6;
inline constexpr int32_t gap_classes = 13;     ///< 0-5, 6-11 … 66-71, and the rest
inline constexpr int32_t overlap_cells = 4;    ///< 0, 1, 2, three and more
inline constexpr int32_t number_pairs = 4005;  ///< of ninety

/// What the tests of fairness count in the draws of one wheel.
struct DrawCounts {
  int32_t draws = 0;
  std::array<int32_t, number_count> numbers{};   ///< draws with each number, from 1
  std::array<int32_t, number_count> first{};     ///< draws in which it came out first
  std::vector<int32_t> pairs;                    ///< draws with each pair, by group_place
  std::array<int32_t, overlap_cells> overlap{};  ///< numbers in common with the draw before
  std::array<int32_t, drawn_count + 1> even{};   ///< even numbers of a draw
  std::array<int32_t, gap_classes> gaps{};       ///< draws between two of a number
  std::vector<int32_t> sums;                     ///< of the five, draw by draw
};

VESTARA_API DrawCounts count_draws(const DrawSequence& sequence);

}  // namespace vestara::study
