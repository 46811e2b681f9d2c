#include "vestara/draws/draw_range.h"

#include <algorithm>

#include "automation/text.h"
#include "vestara/draws/day_literal.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

automation::Variant date_bound(std::optional<int32_t> day) {
  if (!day) return automation::Missing{};
  return automation::Date::from_day(*day);
}

DrawSelection selection_of(const DrawRange& range) {
  const auto bound = [](std::optional<int32_t> day) {
    return day ? DateBound(automation::Date::from_day(*day)) : DateBound();
  };
  return {range.wheels.all ? WheelFilter() : WheelFilter::listed(range.wheels.codes), bound(range.from),
          bound(range.to)};
}

std::string range_condition(const DrawRange& range) {
  std::string condition;
  if (range.from) condition = "dtEstr>=" + day_literal(*range.from);
  if (range.to) condition = SqlAnd(condition, "dtEstr<=" + day_literal(*range.to));
  if (!range.wheels.all)
    condition = SqlAnd(condition, "ruota IN(" + FormatRuoteToSql(range.wheels.codes, WheelChoice::listed) + ")");
  return condition.empty() ? condition : " WHERE " + condition;
}

std::vector<int16_t> chosen_wheels(const WheelSelection& wheels) {
  std::vector<int16_t> chosen;
  if (wheels.all)
    for (int16_t wheel = 1; wheel <= wheel_count; ++wheel) chosen.push_back(wheel);
  else
    for (const std::string_view code : automation::split(wheels.codes, ','))
      if (const auto wheel = wheel_named(code)) chosen.push_back(*wheel);
  std::sort(chosen.begin(), chosen.end());
  return chosen;
}

std::vector<WheelSelection> wheel_loads(const DrawRange& range) {
  const bool several = range.wheels.codes.find(',') != std::string::npos;
  if (!several || (!range.from && !range.to)) return {range.wheels};
  std::vector<WheelSelection> loads;
  for (const int16_t wheel : chosen_wheels(range.wheels)) loads.push_back({false, std::string(wheel_code(wheel))});
  return loads;
}

std::string note_on_loads(const DrawRange& range) {
  if (wheel_loads(range).size() == 1) return {};
  return "each wheel was asked for by itself, so that the dates hold for all of them";
}

}  // namespace vestara
