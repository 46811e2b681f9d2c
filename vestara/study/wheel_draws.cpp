#include "vestara/study/wheel_draws.h"

#include <algorithm>
#include <string>

#include "automation/coercion.h"
#include "automation/date.h"

namespace vestara {
namespace {

std::vector<int32_t> days_of(const Archive& archive, const DrawRange& range) {
  auto rows = archive.rows("SELECT DISTINCT dtEstr,concorsoNumero FROM storico" + range_condition(range));
  std::vector<int32_t> days;
  for (const Column day = rows->column("dtEstr"); !rows->at_end(); rows->move_next())
    if (const auto date = automation::date_in(rows->value(day))) days.push_back(date->day());
  archive.connector()->CloseRecordset(rows);
  return days;
}

}  // namespace

WheelDraws::WheelDraws(const Archive& archive, const DrawRange& range) : WheelDraws(days_of(archive, range)) {}

WheelDraws::WheelDraws(std::vector<int32_t> days) : days_(std::move(days)) { std::sort(days_.begin(), days_.end()); }

int64_t WheelDraws::between(std::optional<int32_t> after, std::optional<int32_t> before) const {
  const auto first = after ? std::upper_bound(days_.begin(), days_.end(), *after) : days_.begin();
  const auto last = before ? std::lower_bound(first, days_.end(), *before) : days_.end();
  return last - first;
}

int16_t wheels_in(const Archive& archive, const DrawRange& range) {
  if (!range.wheels.all)
    return static_cast<int16_t>(1 + std::count(range.wheels.codes.begin(), range.wheels.codes.end(), ','));
  auto rows = archive.rows("SELECT count(DISTINCT ruota) AS quante FROM storico" + range_condition(range));
  const int32_t wheels = rows->at_end() ? 0 : rows->whole_number(rows->column("quante"));
  archive.connector()->CloseRecordset(rows);
  return static_cast<int16_t>(wheels);
}

}  // namespace vestara
