#pragma once  // installed

#include <cstdint>
#include <utility>
#include <vector>

#include "automation/error.h"

namespace vestara {

inline constexpr int16_t ranking_first = 0;
inline constexpr int16_t ranking_last = 89;

/// A number on a wheel (1 to 11), and what it is ranked by.
template <class Value>
struct RankingEntry {
  int16_t number = 0;
  int16_t wheel = 0;
  Value value = 0;
};

/// Ninety entries, indexed from 0; none before it was built.
template <class Value>
class Ranking {
 public:
  using Entry = RankingEntry<Value>;

  bool is_built() const { return !entries_.empty(); }
  /// Ninety entries of zeros.
  static Ranking zeros() {
    Ranking ranking;
    ranking.entries_.resize(ranking_last + 1);
    return ranking;
  }

  /// Error 9 outside 0..89, and for every index before it was built.
  const Entry& at(int32_t index) const { return entries_[place(index)]; }
  Entry& at(int32_t index) { return entries_[place(index)]; }

  /// Puts an entry first; the last one goes.
  void push_front(Entry entry) {
    entries_.insert(entries_.begin(), entry);
    entries_.pop_back();
  }
  /// Every entry from `index` on becomes (-1, -1, -1).
  void mark_unused_from(int32_t index) {
    for (int32_t i = index; i <= ranking_last; ++i) at(i) = {-1, -1, -1};
  }

 private:
  size_t place(int32_t index) const {
    if (index < 0 || std::cmp_greater_equal(index, entries_.size())) throw automation::subscript_out_of_range();
    return static_cast<size_t>(index);
  }
  std::vector<Entry> entries_;
};

}  // namespace vestara
