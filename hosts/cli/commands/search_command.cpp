#include "automation/coercion.h"
#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/study/search_statistics.h"
#include "vestara/archive/lotto.h"

namespace vestara::host {
namespace {

Cell contest_cell(RecordSet& dates, Column column) {
  if (dates.is_null(column)) return {};
  return int64_t{dates.whole_number(column)};
}

Report describe(const cLotto& lotto, RecordSet& dates) {
  Report report;
  report.facts = {{"rows", int64_t{lotto.ContaSortiteTrovate()}},
                  {"draws", int64_t{dates.record_count()}},
                  {"ambate", int64_t{lotto.Ambate()}},
                  {"ambi", int64_t{lotto.Ambi()}},
                  {"terni", int64_t{lotto.Terni()}},
                  {"quaterne", int64_t{lotto.Quaterne()}},
                  {"cinquine", int64_t{lotto.Cinquine()}}};
  report.listing = "dates";
  report.row_kind = "date";
  report.columns = {"date", "contest"};
  const Column day = dates.column("dtEstr");
  const Column contest = dates.column("concorsoNumero");
  for (; !dates.at_end(); dates.move_next()) {
    const auto date = automation::date_in(dates.value(day));
    report.rows.push_back({date ? Cell(automation::iso_day(*date)) : Cell(), contest_cell(dates, contest)});
  }
  return report;
}

}  // namespace

ExitCode run_search(const SearchOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  lotto.StatisticsIsActive(options.statistics);
  auto dates = lotto.LoadLottoEstr(options.numbers.text, options.hits, options.draws.wheels.codes,
                                   date_bound(options.draws.from), date_bound(options.draws.to), false,
                                   options.draws.wheels.all, options.oldest_first);
  // The library answers with empty values what its connector refused.
  if (!dates || !session.connector()->LastError().empty()) session.fail("the archive cannot be read");
  Report report = describe(lotto, *dates);
  session.connector()->CloseRecordset(dates);
  if (options.statistics) report.blocks.push_back(statistics_block(session, options.draws, *lotto.Statistiche()));
  OutputStyle style = context.style();
  style.table_rows = options.table_rows;
  write_report(context.out, report, style);
  return report.rows.empty() ? ExitCode::nothing_found : ExitCode::ok;
}

}  // namespace vestara::host
