#include "vestara/distances/distance_lists.h"

#include <numeric>

namespace vestara {
void DistanceLists::clear() {
  draws_ = {};
  appearances_ = {};
  distances_ = {};
  starts_ = {};
}

template <class Appearance>
void DistanceLists::walk(Appearance appearance) const {
  for (size_t i = 0; i < draws_.size(); ++i) {
    const size_t end = i + 1 < draws_.size() ? draws_[i + 1].first_appearance : appearances_.size();
    for (size_t k = draws_[i].first_appearance; k < end; ++k) appearance(appearances_[k], draws_[i].number);
  }
}

void DistanceLists::end_load() {
  starts_.assign(lists_ + 1, 0);
  for (const uint16_t list : appearances_) ++starts_[list + size_t{1}];
  std::partial_sum(starts_.begin(), starts_.end(), starts_.begin());
  struct Place {
    uint32_t next;
    int32_t last_draw;
  };
  std::vector<Place> places(lists_);
  for (size_t list = 0; list < lists_; ++list) places[list].next = starts_[list];
  distances_.assign(appearances_.size(), 0);
  walk([&](uint16_t list, int32_t draw) {
    Place& place = places[list];
    distances_[place.next++] = draw - place.last_draw;
    place.last_draw = draw;
  });
  draws_ = {};
  appearances_ = {};
}

int32_t DistanceLists::count(size_t group, size_t place) const {
  if (place == no_place || starts_.empty()) return static_cast<int32_t>(list(group, place).size());
  const size_t wanted = group * places_ + place;
  return static_cast<int32_t>(starts_[wanted + 1] - starts_[wanted]);
}

std::vector<int32_t> DistanceLists::list(size_t group, size_t place) const {
  if (place == no_place) return {};
  const size_t wanted = group * places_ + place;
  const auto from = distances_.begin();
  if (!starts_.empty()) return {from + starts_[wanted], from + starts_[wanted + 1]};
  std::vector<int32_t> found;
  int32_t last = 0;
  walk([&](uint16_t list, int32_t draw) {
    if (list != wanted) return;
    found.push_back(draw - last);
    last = draw;
  });
  return found;
}

}  // namespace vestara
