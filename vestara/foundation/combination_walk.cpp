#include "vestara/foundation/combination_walk.h"

#include <numeric>

namespace vestara {

CombinationWalk::CombinationWalk(int32_t items, int32_t chosen) : items_(items), places_(static_cast<size_t>(chosen)) {
  std::iota(places_.begin(), places_.end(), 1);
}

bool CombinationWalk::advance() {
  const auto chosen = static_cast<int32_t>(places_.size());
  int32_t last = chosen;  // the rightmost place that can still grow
  while (last >= 1 && places_[static_cast<size_t>(last - 1)] >= items_ - chosen + last) --last;
  if (last < 1) return false;
  changed_from_ = static_cast<size_t>(last - 1);
  const auto grown = places_.begin() + (last - 1);
  std::iota(grown, places_.end(), *grown + 1);
  return true;
}

}  // namespace vestara
