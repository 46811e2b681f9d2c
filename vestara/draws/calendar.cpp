#include "vestara/draws/calendar.h"

#include <array>

#include "automation/date.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

using automation::day_from_civil;

// Day zero was a Saturday.
enum Weekday : uint8_t { saturday, sunday, monday, tuesday, wednesday, thursday, friday };

constexpr uint8_t days(std::initializer_list<Weekday> weekdays) {
  uint8_t set = 0;
  for (const Weekday weekday : weekdays) set = static_cast<uint8_t>(set | (1U << weekday));
  return set;
}

struct Cadence {
  int32_t from;
  uint8_t weekdays;
};

const std::array<Cadence, 4>& cadences() {
  static const std::array<Cadence, 4> newest_first{
      {{day_from_civil(2023, 7, 7), days({tuesday, thursday, friday, saturday})},
       {day_from_civil(2005, 6, 21), days({tuesday, thursday, saturday})},
       {day_from_civil(1997, 3, 12), days({wednesday, saturday})},
       {day_from_civil(1871, 1, 7), days({saturday})}}};
  return newest_first;
}

Weekday weekday_of(int32_t day) {
  constexpr int32_t week = 7;
  return static_cast<Weekday>((day % week + week) % week);
}

/// First draws of the wheels, from enumerator 1.
const std::array<int32_t, wheel_count>& first_days() {
  static const int32_t start = day_from_civil(1871, 1, 7);
  static const int32_t later = day_from_civil(1939, 7, 8);
  static const std::array<int32_t, wheel_count> firsts{
      day_from_civil(1874, 5, 2), later, start, later, start, start, start, start, start, start,
      day_from_civil(2005, 5, 4)};
  return firsts;
}

}  // namespace

int32_t first_draw_day() { return cadences().back().from; }

bool is_draw_day(int32_t day) {
  for (const Cadence& cadence : cadences())
    if (day >= cadence.from) return (cadence.weekdays >> weekday_of(day) & 1U) != 0;
  return false;
}

int32_t first_draw_day(int32_t wheel) { return first_days().at(static_cast<size_t>(wheel - 1)); }

bool is_drawn_on(int32_t wheel, int32_t day) { return day >= first_draw_day(wheel); }

std::vector<int8_t> wheels_of_day(int32_t day) {
  std::vector<int8_t> wheels;
  for (int8_t wheel = 1; wheel <= wheel_count; ++wheel)
    if (is_drawn_on(wheel, day)) wheels.push_back(wheel);
  return wheels;
}

}  // namespace vestara
