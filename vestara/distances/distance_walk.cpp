#include "vestara/distances/distance_walk.h"

#include <algorithm>
#include <array>
#include <string>

#include "automation/coercion.h"
#include "automation/variant.h"
#include "automation/yield.h"
#include "vestara/distances/distance_text.h"
#include "vestara/foundation/draw_columns.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

/// Where the draw of a row counts: whose lists, and how many draws were before.
struct Draw {
  size_t group;
  int32_t number;
};

class DrawsOfWheels {
 public:
  explicit DrawsOfWheels(RecordSet& rows) : wheel_(rows) {}
  Draw enter(RecordSet& row) {
    const int16_t wheel = wheel_.wheel(row);
    return {wheel_group(wheel), draws_.at(wheel)++};
  }

 private:
  WheelColumn wheel_;
  PerWheel<int32_t> draws_;
};

class DatesOfAll {
 public:
  explicit DatesOfAll(RecordSet& rows) : date_(rows.column("dtEstr")) {}
  Draw enter(RecordSet& row) {
    automation::Variant date = row.value(date_);
    if (!(date == last_)) {
      // Dates differ when their texts do; equal values need not be written out.
      std::string text = automation::to_text(date);
      if (text != text_of_last_) ++dates_;
      text_of_last_ = std::move(text);
      last_ = std::move(date);
    }
    return {0, dates_};
  }

 private:
  Column date_;
  automation::Variant last_;
  std::string text_of_last_;
  int32_t dates_ = 0;
};

/// Records each number as it is read.
struct Numbers {
  template <class Record>
  static void of(RecordSet& row, const NumberColumns& columns, Record record) {
    for (const Column column : columns) record(number_place(row.whole_number(column)));
  }
};

/// Nine exchanges sort five numbers: a network, since this is done for every row (Knuth, The Art of Computer
/// Programming, volume 3, section 5.3.4). Each exchange is on copies, which compiles to no branch: of numbers by
/// chance every second one would be guessed wrong.
void sort_five(std::array<int32_t, drawn_count>& n) {
  const auto exchange = [](int32_t& low, int32_t& high) {
    const int32_t a = low;
    const int32_t b = high;
    low = a < b ? a : b;
    high = a < b ? b : a;
  };
  exchange(n[0], n[1]), exchange(n[3], n[4]), exchange(n[2], n[4]);
  exchange(n[2], n[3]), exchange(n[1], n[4]), exchange(n[0], n[3]);
  exchange(n[0], n[2]), exchange(n[1], n[3]), exchange(n[1], n[2]);
}

/// Records the ten pairs, the smaller number first.
struct Pairs {
  template <class Record>
  static void of(RecordSet& row, const NumberColumns& columns, Record record) {
    std::array<int32_t, drawn_count> numbers{};
    std::transform(columns.begin(), columns.end(), numbers.begin(),
                   [&](Column column) { return row.whole_number(column); });
    sort_five(numbers);
    for (size_t i = 0; i < numbers.size(); ++i)
      for (size_t j = i + 1; j < numbers.size(); ++j) record(pair_place(numbers[i], numbers[j]));
  }
};

template <class Draws, class Content>
void walk(RecordSet& rows, DistanceLists& lists) {
  if (rows.at_end()) return;
  const NumberColumns columns = number_columns(rows);
  Draws draws(rows);
  for (; !rows.at_end(); rows.move_next()) {
    const Draw draw = draws.enter(rows);
    lists.begin_draw(draw.group, draw.number);
    Content::of(rows, columns, [&](size_t place) { lists.record(place); });
    automation::yield_to_host();
  }
}

}  // namespace

void walk_wheels(RecordSet& rows, Recorded recorded, DistanceLists& lists) {
  recorded == Recorded::pairs ? walk<DrawsOfWheels, Pairs>(rows, lists) : walk<DrawsOfWheels, Numbers>(rows, lists);
}

void walk_dates(RecordSet& rows, Recorded recorded, DistanceLists& lists) {
  recorded == Recorded::pairs ? walk<DatesOfAll, Pairs>(rows, lists) : walk<DatesOfAll, Numbers>(rows, lists);
}

namespace {

size_t places_of(Recorded recorded) { return recorded == Recorded::pairs ? pair_places : number_places; }

}  // namespace

bool load_wheel_distances(DbConnector& connector, Recorded recorded, const WheelFilter& wheels,
                          const DistancePeriod& period, DistanceLists& into) {
  return walk_rows(connector, wheel_draws_statement(period, wheels), [&](RecordSet& rows) {
    walk_wheels(rows, recorded, into);
    into.end_load();
  });
}

bool load_date_distances(DbConnector& connector, Recorded recorded, NationalWheel national,
                         const DistancePeriod& period, DistanceLists& into) {
  return walk_rows(connector, all_draws_statement(period, national), [&](RecordSet& rows) {
    walk_dates(rows, recorded, into);
    into.end_load();
  });
}

DistanceLists load_wheel_distances(DbConnector& connector, Recorded recorded, const WheelFilter& wheels,
                                   const DistancePeriod& period) {
  return whole("the distances", DistanceLists(wheel_count, places_of(recorded)),
               [&](DistanceLists& into) { return load_wheel_distances(connector, recorded, wheels, period, into); });
}

DistanceLists load_date_distances(DbConnector& connector, Recorded recorded, NationalWheel national,
                                  const DistancePeriod& period) {
  return whole("the distances", DistanceLists(1, places_of(recorded)),
               [&](DistanceLists& into) { return load_date_distances(connector, recorded, national, period, into); });
}

}  // namespace vestara
