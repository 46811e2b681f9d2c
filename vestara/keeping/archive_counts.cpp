#include "vestara/keeping/archive_counts.h"

#include <string>

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

}  // namespace

int32_t rows_of_day(const Archive& archive, int32_t day) { return count(archive, "*", "dtEstr=" + day_literal(day)); }

int16_t position_in_year(const Archive& archive, int32_t day) {
  const int32_t first_day = automation::day_from_civil(automation::civil_from_day(day).year, 1, 1);
  return static_cast<int16_t>(
      1 + count(archive, "DISTINCT dtEstr", "dtEstr>=" + day_literal(first_day) + " AND dtEstr<" + day_literal(day)));
}

}  // namespace vestara
