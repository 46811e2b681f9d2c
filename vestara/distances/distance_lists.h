#pragma once  // installed

#include <cstddef>
#include <cstdint>
#include <vector>

#include "automation/error.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

// Places of numbers and of pairs in a group of lists, and of the group of a wheel. Error 9 outside: numbers run from 1
// to 90, pairs from 1..89 with 2..90, wheels from 1 to 11.
inline constexpr size_t number_places = 90;
size_t number_place(int32_t number);
/// Pairs of a number with itself have a place, those with the larger number first none: `no_place`.
inline constexpr size_t pair_places = 4094;
inline constexpr size_t no_place = SIZE_MAX;
size_t pair_place(int32_t first, int32_t second);
size_t wheel_group(int32_t wheel);

/// Lists of the distances between successive appearances: `places` in a group, one group a wheel or one for all. A load
/// clears them, writes draw by draw and calls `end_load`, which puts every list in one piece. They can be read at any
/// time. What a load that failed wrote stays.
class VESTARA_API DistanceLists {
 public:
  DistanceLists(size_t groups, size_t places) : lists_(groups * places), places_(places) {}

  /// Forgets everything.
  void clear();
  /// The appearances recorded from now on are those of one draw. The first distance of a list counts from draw 0.
  void begin_draw(size_t group, int32_t draw) {
    group_start_ = group * places_;
    draws_.push_back({draw, static_cast<uint32_t>(appearances_.size())});
  }
  void record(size_t place) { appearances_.push_back(static_cast<uint16_t>(group_start_ + place)); }
  void end_load();

  int32_t count(size_t group, size_t place) const;
  std::vector<int32_t> list(size_t group, size_t place) const;

 private:
  struct Draw {
    int32_t number;
    uint32_t first_appearance;
  };
  /// Calls `appearance(list, draw)` for all of them, in order.
  template <class Appearance>
  void walk(Appearance appearance) const;

  size_t lists_;
  size_t places_;
  size_t group_start_ = 0;
  // Of a load that has not ended: what came out in each draw, as the list that it belongs to.
  std::vector<Draw> draws_;
  std::vector<uint16_t> appearances_;
  // Of one that has: list by list, and where each begins.
  std::vector<int32_t> distances_;
  std::vector<uint32_t> starts_;
};

namespace detail {
inline size_t place_within(int32_t value, int32_t first, int32_t last) {
  if (value < first || value > last) throw automation::subscript_out_of_range();
  return static_cast<size_t>(value - first);
}
}  // namespace detail

inline size_t number_place(int32_t number) { return detail::place_within(number, 1, number_count); }
inline size_t wheel_group(int32_t wheel) { return detail::place_within(wheel, 1, wheel_count); }

inline size_t pair_place(int32_t first, int32_t second) {
  const size_t row = detail::place_within(first, 1, number_count - 1);
  const size_t column = detail::place_within(second, 2, number_count);
  if (first > second) return no_place;
  // Rows of a triangle, each shorter by one: 1..90, 2..90, … The very first place stays unused.
  return number_places * row - (row - 1) * row / 2 + (column + 1 - row);
}

/// The period that distances are taken from, and the way through it.
struct DistancePeriod {
  DateBound from;
  DateBound to;
  DateOrder order = DateOrder::newest_first;
};

enum class NationalWheel : bool { included, left_out };

enum class Recorded : bool { numbers, pairs };

// The lists, asked of the database. A distance counts draws from one appearance to the next: 1 for neighbours. Each
// function gives whole lists or raises: a failure of kind database when the connector refused the statement, error 9
// for a number or a wheel that does not exist, what the connector raises. The forms with `into` are for a class that
// shows what a load that failed wrote: they fill lists that were cleared, and give False when the statement was
// refused.

/// The distances on each of some wheels. Groups: `wheel_group`; places: `number_place` or `pair_place`.
VESTARA_API DistanceLists load_wheel_distances(DbConnector& connector, Recorded recorded, const WheelFilter& wheels,
                                               const DistancePeriod& period);
bool load_wheel_distances(DbConnector& connector, Recorded recorded, const WheelFilter& wheels,
                          const DistancePeriod& period, DistanceLists& into);
/// The distances over all wheels, in dates. One group, 0.
VESTARA_API DistanceLists load_date_distances(DbConnector& connector, Recorded recorded, NationalWheel national,
                                              const DistancePeriod& period);
bool load_date_distances(DbConnector& connector, Recorded recorded, NationalWheel national,
                         const DistancePeriod& period, DistanceLists& into);

}  // namespace vestara
