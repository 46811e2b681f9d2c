#include "vestara/archive/hit_search.h"

#include "automation/coercion.h"
#include "vestara/archive/archive_text.h"
#include "vestara/archive/hit_counters.h"
#include "vestara/archive/search_text.h"
#include "vestara/foundation/query.h"

namespace vestara {
namespace {

std::vector<HitDate> read_dates(RecordSet& rows) {
  std::vector<HitDate> dates;
  if (rows.at_end()) return dates;
  dates.reserve(static_cast<size_t>(rows.record_count()));
  const Column date = rows.column("dtEstr");
  const Column contest = rows.column("concorsoNumero");
  for (; !rows.at_end(); rows.move_next()) {
    HitDate hit{automation::date_in(rows.value(date)), std::nullopt};
    if (!rows.is_null(contest)) hit.contest = rows.whole_number(contest);
    dates.push_back(hit);
  }
  return dates;
}

}  // namespace

Hits find_hits(DbConnector& connector, const SearchQuestion& question) {
  return whole("the search", Hits(), [&](Hits& into) {
    return walk_rows(connector, counting_statement(question),
                     [&](RecordSet& rows) { count_hits(rows, question.draws, into.count); }) &&
           walk_rows(connector, dates_statement(question), [&](RecordSet& rows) { into.dates = read_dates(rows); });
  });
}

bool count_draws(DbConnector& connector, const DrawCountQuestion& question, int32_t& into) {
  return walk_rows(connector, draw_count_statement(question), [&](RecordSet& rows) {
    if (!rows.at_end()) into = rows.record_count();
  });
}

int32_t count_draws(DbConnector& connector, const DrawCountQuestion& question) {
  return whole("the count of draws", int32_t{0}, [&](int32_t& into) { return count_draws(connector, question, into); });
}

}  // namespace vestara
