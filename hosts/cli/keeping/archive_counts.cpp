#include "hosts/cli/keeping/archive_counts.h"

#include <string>

#include "automation/date.h"
#include "hosts/cli/draws/day_literal.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/output/shown_text.h"

namespace vestara::host {
namespace {

int32_t count(const ArchiveSession& session, const std::string& what, const std::string& condition) {
  auto rows = session.rows("SELECT count(" + what + ") AS quante FROM storico WHERE " + condition);
  const int32_t counted = rows->at_end() ? 0 : rows->whole_number(rows->column("quante"));
  session.connector()->CloseRecordset(rows);
  return counted;
}

}  // namespace

int32_t rows_of_day(const ArchiveSession& session, int32_t day) {
  return count(session, "*", "dtEstr=" + day_literal(day));
}

int32_t some_rows_of_day(const ArchiveSession& session, int32_t day) {
  const int32_t rows = rows_of_day(session, day);
  if (rows != 0) return rows;
  throw Failure(ExitCode::nothing_found,
                "the archive holds no draw of " + shown_day(day) + "; vestara draw show --back 1 shows the newest");
}

int16_t position_in_year(const ArchiveSession& session, int32_t day) {
  const int32_t first_day = automation::day_from_civil(automation::civil_from_day(day).year, 1, 1);
  return static_cast<int16_t>(
      1 + count(session, "DISTINCT dtEstr", "dtEstr>=" + day_literal(first_day) + " AND dtEstr<" + day_literal(day)));
}

}  // namespace vestara::host
