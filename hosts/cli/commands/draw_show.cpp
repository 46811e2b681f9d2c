#include "hosts/cli/commands/draw_show.h"

#include <string>

#include "automation/coercion.h"
#include "hosts/cli/archive/required_draw.h"
#include "hosts/cli/failure.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/archive_counts.h"

namespace vestara::host {
namespace {

/// The day of the draw that lies `back` draws back, 1 being the newest.
int32_t day_of_draw(const ArchiveSession& session, cLotto& lotto, int32_t back) {
  // Not by GetDataEstrazioneDaConta: it takes a draw before the oldest for an error and logs it.
  const auto draws = lotto.LoadLottoEstr();
  if (!draws) session.fail("the archive cannot be read");
  if (draws->record_count() < back)
    throw Failure(ExitCode::nothing_found, "the archive does not go back " +
                                               counted(static_cast<size_t>(back), "draw") +
                                               "; vestara archive says what it holds");
  draws->move(back - 1);
  const auto date = automation::date_in(draws->value(draws->column("dtEstr")));
  if (!date) session.fail("the archive holds a draw without a date; vestara doctor names it");
  return date->day();
}

/// Absent where nothing was drawn.
Cell number_cell(const std::string& number) {
  const int64_t value = automation::leading_number(number);
  if (value == 0) return {};
  return value;
}

Report describe(const cEstrazione& draw, int32_t day) {
  Report report;
  report.facts = {{"date", shown_day(day)}, {"contest", int64_t{draw.NumeroConcorso()}}};
  report.listing = "wheels";
  report.row_kind = "wheel";
  report.columns = {"wheel", "n1", "n2", "n3", "n4", "n5"};
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel) {
    if (draw.GetNumeri(wheel).empty()) continue;
    std::vector<Cell> row{std::string(wheel_code(wheel))};
    for (int32_t position = 1; position <= drawn_count; ++position)
      row.push_back(number_cell(draw.GetNumero(wheel, position)));
    report.rows.push_back(std::move(row));
  }
  return report;
}

}  // namespace

Report draw_report(const ArchiveSession& session, const DrawShowOptions& options) {
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  const int32_t day = options.day ? *options.day : day_of_draw(session, lotto, options.back);
  // Asked first: the library takes a date without rows for an error and logs it.
  some_rows_of_day(session, day);
  const auto draw = lotto.GetEstrazioneDaData(automation::Date::from_day(day));
  if (!draw) session.fail("the draw of " + shown_day(day) + " cannot be read, see " + log_path());
  return describe(*draw, day);
}

}  // namespace vestara::host
