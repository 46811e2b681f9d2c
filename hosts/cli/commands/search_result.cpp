#include "hosts/cli/commands/search_result.h"

#include "automation/date.h"
#include "hosts/cli/library_failure.h"
#include "hosts/cli/study/search_statistics.h"
#include "vestara/archive/hit_search.h"

namespace vestara::host {
namespace {

Report describe(const Hits& hits) {
  const HitCounters& found = hits.count.combinations;
  Report report;
  report.facts = {{"rows", int64_t{hits.count.rows}},   {"draws", std::ssize(hits.dates)},
                  {"ambate", int64_t{found.ambate}},    {"ambi", int64_t{found.ambi}},
                  {"terni", int64_t{found.terni}},      {"quaterne", int64_t{found.quaterne}},
                  {"cinquine", int64_t{found.cinquine}}};
  report.listing = "dates";
  report.row_kind = "date";
  report.columns = {"date", "contest"};
  for (const HitDate& hit : hits.dates)
    report.rows.push_back(
        {hit.date ? Cell(automation::iso_day(*hit.date)) : Cell(), hit.contest ? Cell(int64_t{*hit.contest}) : Cell()});
  return report;
}

}  // namespace

ExitCode show_search(const SearchRequest& request, const SearchView& view, const Context& context) {
  const ArchiveSession session = context.open_archive();
  const SearchQuestion question{request.numbers.text, request.hits, selection_of(request.draws), DrawChoice::hits,
                                date_order(view.oldest_first)};
  const Hits hits = answer(session, "the hits cannot be counted",
                           [&](DbConnector& connector) { return find_hits(connector, question); });
  Report report = describe(hits);
  if (view.statistics) report.blocks.push_back(statistics_block(session, request.draws, question, hits));
  OutputStyle style = context.style();
  style.table_rows = view.table_rows;
  write_report(context.out, report, style);
  return report.rows.empty() ? ExitCode::nothing_found : ExitCode::ok;
}

}  // namespace vestara::host
