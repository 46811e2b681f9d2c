#include <optional>
#include <vector>

#include "automation/coercion.h"
#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/command.h"
#include "vestara/archive/lotto.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/archive_counts.h"

namespace vestara::host {
namespace {

/// As "YYYY-MM-DD"; absent for anything that is no date.
Cell day_cell(const automation::Variant& value) {
  const auto date = automation::date_in(value);
  if (!date) return {};
  return automation::iso_day(*date);
}

Cell day_cell(std::optional<int32_t> day) { return day ? Cell(shown_day(*day)) : Cell(); }

/// Draws in which the wheel took part; absent for a wheel that the library does not know.
Cell draws_on(cLotto& lotto, const std::string& code) {
  const auto wheel = wheel_named(code);
  if (!wheel) return {};
  return int64_t{lotto.ContaEstrazioniStorico(automation::Missing{}, automation::Missing{}, *wheel)};
}

Report describe(cLotto& lotto, const std::vector<WheelRows>& wheels) {
  int64_t rows = 0;
  Report report;
  report.listing = "wheels";
  report.row_kind = "wheel";
  report.columns = {"wheel", "name", "draw_dates", "rows", "first_date", "last_date"};
  for (const WheelRows& line : wheels) {
    const auto wheel = wheel_named(line.code);
    report.rows.push_back({line.code, wheel ? Cell(std::string(wheel_name(*wheel))) : Cell(),
                           draws_on(lotto, line.code), int64_t{line.rows}, day_cell(line.first), day_cell(line.last)});
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
  const auto wheels = rows_by_wheel(session);
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  const Report report = describe(lotto, wheels);
  require_answered(session);
  context.show(report);
  if (!wheels.empty()) return ExitCode::ok;
  context.remark("the archive holds no draws; vestara import FILE fills it");
  return ExitCode::nothing_found;
}

}  // namespace

extern const Command archive_command{"archive", Group::archive, "Say what the archive holds",
                                     "vestara archive --format json", bound<run_archive>};

}  // namespace vestara::host
