#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "vestara/draws/draw_sequence.h"
#include "vestara/draws/occurrences.h"

// One pass over a sequence of draws for all numbers, pairs or triples; the groups of four and five by what occurred.

namespace vestara {

/// Of every group of `size` (1 to 3) numbers, at its group_place: 90, 4,005 or 117,480 entries. `found` is filled anew.
void scan_small_groups(const DrawSequence& sequence, size_t size, std::vector<Occurrences>& found);

/// Of every group of `size` (4 or 5) numbers that occurred, by ascending group_place.
void scan_large_groups(const DrawSequence& sequence, size_t size,
                       const std::function<void(uint32_t place, const Occurrences& found)>& take);

/// The draws that hold at least `hits` of a set's numbers.
Occurrences scan_set(const DrawSequence& sequence, NumberMask set, int32_t hits);

/// Calls `visit(draw)` for every such draw, oldest first; a date of several wheels may come more than once.
template <class Visit>
void each_hit(const DrawSequence& sequence, NumberMask set, int32_t hits, Visit visit) {
  const LoadedDraws& draws = sequence.loaded();
  sequence.each_row([&](int32_t draw, size_t row) {
    if ((draws.mask(row) & set).count() >= hits) visit(draw);
  });
}

}  // namespace vestara
