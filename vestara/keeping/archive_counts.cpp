#include "vestara/keeping/archive_counts.h"

#include <string>

#include "automation/coercion.h"
#include "automation/date.h"
#include "vestara/draws/day_literal.h"

namespace vestara {
namespace {

int32_t count(const Archive& archive, const std::string& what, const std::string& condition) {
  auto rows = archive.rows("SELECT count(" + what + ") AS quante FROM storico WHERE " + condition);
  const int32_t counted = rows->at_end() ? 0 : rows->whole_number(rows->column("quante"));
  archive.connector()->CloseRecordset(rows);
  return counted;
}

std::optional<int32_t> day_in(const automation::Variant& value) {
  const auto date = automation::date_in(value);
  return date ? std::optional(date->day()) : std::nullopt;
}

}  // namespace

int32_t rows_of_day(const Archive& archive, int32_t day) { return count(archive, "*", "dtEstr=" + day_literal(day)); }

int16_t position_in_year(const Archive& archive, int32_t day) {
  const int32_t first_day = automation::day_from_civil(automation::civil_from_day(day).year, 1, 1);
  return static_cast<int16_t>(
      1 + count(archive, "DISTINCT dtEstr", "dtEstr>=" + day_literal(first_day) + " AND dtEstr<" + day_literal(day)));
}

std::optional<int32_t> newest_day(const Archive& archive) {
  auto rows = archive.rows("SELECT max(dtEstr) AS ultima FROM storico");
  const auto day = rows->at_end() ? std::nullopt : day_in(rows->value(Column{0}));
  archive.connector()->CloseRecordset(rows);
  return day;
}

std::vector<WheelRows> rows_by_wheel(const Archive& archive) {
  std::vector<WheelRows> wheels;
  auto rows = archive.rows(
      "SELECT ruota,count(*) AS quante,min(dtEstr) AS prima,max(dtEstr) AS ultima FROM storico GROUP BY ruota "
      "ORDER BY CASE WHEN ruota='RN' THEN 1 ELSE 0 END,ruota");
  for (; !rows->at_end(); rows->move_next()) {
    const Column code = rows->column("ruota");
    wheels.push_back({rows->is_null(code) ? "" : std::string(rows->text(code)),
                      rows->whole_number(rows->column("quante")), day_in(rows->value(rows->column("prima"))),
                      day_in(rows->value(rows->column("ultima")))});
  }
  archive.connector()->CloseRecordset(rows);
  return wheels;
}

}  // namespace vestara
