#include "vestara/frequency/analytic_scan.h"

#include "automation/coercion.h"
#include "automation/int16.h"
#include "automation/variant.h"
#include "automation/yield.h"
#include "vestara/foundation/draw_columns.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/delay_scan.h"

namespace vestara {
namespace {

/// Counts the dates of a walk from 0: the first row begins one.
class DateCount {
 public:
  int16_t at(automation::Variant date) {
    if (!(date == last_)) {
      ++count_;
      last_ = std::move(date);
    }
    return count_;
  }

 private:
  automation::Variant last_ = automation::Date::from_day(2);  // 1 January 1900: no draw has it
  automation::Int16 count_ = -1;
};

/// Those numbers of a row that newer draws of the wheel did not hold, joined by "."; how many adds to `met`.
std::string new_numbers(RecordSet& row, const NumberColumns& columns, int16_t wheel, int16_t delay,
                        WheelGrid<int16_t>& delays, int32_t& met) {
  std::string numbers;
  for (const Column column : columns) {
    const int32_t number = row.whole_number(column);
    int16_t& cell = delays.at(wheel, number);
    if (cell != never_drawn) continue;
    cell = delay;
    ++met;
    numbers.append(numbers.empty() ? "" : ".").append(std::to_string(number));
  }
  return numbers;
}

}  // namespace

std::vector<AnalyticLine> scan_analytic_lines(RecordSet& rows) {
  std::vector<AnalyticLine> lines;
  if (rows.at_end()) return lines;
  const DrawColumns columns(rows);
  const Column date = rows.column("dtEstr");
  WheelGrid<int16_t> delays;
  FillWheelGridInt(delays, never_drawn);
  DateCount dates;
  for (int32_t met = 0; !rows.at_end(); rows.move_next()) {
    const int16_t delay = dates.at(rows.value(date));
    const std::string alias(columns.wheel.alias(rows));
    const int16_t wheel = columns.wheel.wheel(rows);
    std::string numbers = new_numbers(rows, columns.numbers, wheel, delay, delays, met);
    if (!numbers.empty())
      lines.push_back({automation::to_date(rows.value(date)), std::move(numbers), delay, alias, wheel});
    if (met == wheel_count * number_count) break;
    automation::yield_to_host();
  }
  return lines;
}

}  // namespace vestara
