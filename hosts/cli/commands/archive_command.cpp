#include <vector>

#include "automation/coercion.h"
#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/command.h"
#include "vestara/archive/lotto.h"
#include "vestara/draws/wheel_names.h"

namespace vestara::host {
namespace {

/// As "YYYY-MM-DD"; absent for anything that is no date.
Cell day_cell(const automation::Variant& value) {
  const auto date = automation::date_in(value);
  if (!date) return {};
  return automation::iso_day(*date);
}

struct WheelLine {
  std::string code;
  int32_t rows;
  Cell first;
  Cell last;
};

std::vector<WheelLine> wheel_lines(const ArchiveSession& session) {
  std::vector<WheelLine> lines;
  auto rows = session.rows(
      "SELECT ruota,count(*) AS quante,min(dtEstr) AS prima,max(dtEstr) AS ultima FROM storico GROUP BY ruota "
      "ORDER BY CASE WHEN ruota='RN' THEN 1 ELSE 0 END,ruota");
  for (; !rows->at_end(); rows->move_next()) {
    const Column code = rows->column("ruota");
    lines.push_back({rows->is_null(code) ? "" : std::string(rows->text(code)),
                     rows->whole_number(rows->column("quante")), day_cell(rows->value(rows->column("prima"))),
                     day_cell(rows->value(rows->column("ultima")))});
  }
  session.connector()->CloseRecordset(rows);
  return lines;
}

/// Draws in which the wheel took part; absent for a wheel that the library does not know.
Cell draws_on(cLotto& lotto, const std::string& code) {
  const auto wheel = wheel_named(code);
  if (!wheel) return {};
  return int64_t{lotto.ContaEstrazioniStorico(automation::Missing{}, automation::Missing{}, *wheel)};
}

Report describe(cLotto& lotto, const std::vector<WheelLine>& lines) {
  int64_t rows = 0;
  Report report;
  report.listing = "wheels";
  report.row_kind = "wheel";
  report.columns = {"wheel", "name", "draw_dates", "rows", "first_date", "last_date"};
  for (const WheelLine& line : lines) {
    const auto wheel = wheel_named(line.code);
    report.rows.push_back({line.code, wheel ? Cell(std::string(wheel_name(*wheel))) : Cell(),
                           draws_on(lotto, line.code), int64_t{line.rows}, line.first, line.last});
    rows += line.rows;
  }
  report.facts = {{"draw_dates", int64_t{lotto.ContaEstrazioniStorico()}},
                  {"rows", rows},
                  {"first_date", day_cell(lotto.GetMinDateStorico())},
                  {"last_date", day_cell(lotto.GetMaxDateStorico())}};
  return report;
}

ExitCode run_archive(const Context& context) {
  const ArchiveSession session = context.open_archive();
  const auto lines = wheel_lines(session);
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  const Report report = describe(lotto, lines);
  require_answered(session);
  context.show(report);
  if (!lines.empty()) return ExitCode::ok;
  context.remark("the archive holds no draws; vestara import FILE fills it");
  return ExitCode::nothing_found;
}

}  // namespace

extern const Command archive_command{"archive", Group::archive, "Say what the archive holds",
                                     "vestara archive --format json", bound<run_archive>};

}  // namespace vestara::host
