#include "vestara/study/wheel_calendar.h"

#include <algorithm>
#include <set>
#include <utility>

#include "automation/coercion.h"
#include "automation/date.h"
#include "vestara/draws/wheel_names.h"

namespace vestara {
namespace {

WheelCalendar::Days read_days(const Archive& archive, const DrawRange& range) {
  WheelCalendar::Days days;
  auto rows = archive.rows("SELECT ruota,dtEstr FROM storico" + range_condition(range));
  const Column alias = rows->column("ruota");
  const Column day = rows->column("dtEstr");
  for (; !rows->at_end(); rows->move_next()) {
    if (rows->is_null(alias)) continue;
    const auto wheel = wheel_named(rows->text(alias));
    const auto date = automation::date_in(rows->value(day));
    if (wheel && date) days.at(static_cast<size_t>(*wheel - 1)).push_back(date->day());
  }
  archive.connector()->CloseRecordset(rows);
  return days;
}

}  // namespace

WheelCalendar::WheelCalendar(const Archive& archive, const DrawRange& range)
    : WheelCalendar(read_days(archive, range)) {}

WheelCalendar::WheelCalendar(Days days) : days_(std::move(days)) {
  for (auto& of_wheel : days_) std::sort(of_wheel.begin(), of_wheel.end());
}

int64_t WheelCalendar::draws(int16_t wheel) const { return std::ssize(days_of(wheel)); }

int64_t WheelCalendar::draws_after(int16_t wheel, int32_t day) const {
  const auto& days = days_of(wheel);
  return days.end() - std::upper_bound(days.begin(), days.end(), day);
}

int64_t WheelCalendar::dates() const {
  std::set<int32_t> dates;
  for (const auto& of_wheel : days_) dates.insert(of_wheel.begin(), of_wheel.end());
  return std::ssize(dates);
}

}  // namespace vestara
