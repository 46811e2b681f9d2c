#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara {

/// Walks all ways to choose `chosen` of `items` things, in lexicographic order of the places: (1,2,3), (1,2,4), …
class VESTARA_API CombinationWalk {
 public:
  /// Stands on the first one. `chosen` is 1 to `items`.
  CombinationWalk(int32_t items, int32_t chosen);

  /// Places of the things chosen, ascending, counted from 1.
  std::span<const int32_t> places() const { return places_; }
  /// False after the last one, which stays.
  bool advance();
  /// The first of the places, counted from 0, that the last advance changed.
  size_t changed_from() const { return changed_from_; }

 private:
  int32_t items_;
  size_t changed_from_ = 0;
  std::vector<int32_t> places_;
};

}  // namespace vestara
