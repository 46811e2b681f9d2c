#include <limits>
#include <optional>
#include <string>

#include "automation/coercion.h"
#include "hosts/cli/archive/required_draw.h"
#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/archive_counts.h"

namespace vestara::host {
namespace {

struct DrawShowOptions {
  std::string date;
  std::string back;
};

void add_draw_show(CLI::App& app, DrawShowOptions& options) {
  argument(app, "DATE", options.date, "YYYY-MM-DD or D/M/YYYY");
  value_option(app, "--back", options.back, "N", "instead of a date: 1 is the newest draw, 2 the one before");
}

/// Which draw is meant: that of a day (counted from 1899-12-30), or the one so many draws back, 1 being the newest.
struct WhichDraw {
  std::optional<int32_t> day;
  int32_t back = 0;
};

WhichDraw which_draw(const DrawShowOptions& options) {
  if (options.date.empty() == options.back.empty())
    throw Failure(FailureKind::argument, "which draw? give either DATE or --back N; --back 1 is the newest");
  if (!options.date.empty()) return {day_value("DATE", options.date)};
  return {std::nullopt, whole_value("--back", options.back, 1, std::numeric_limits<int32_t>::max())};
}

/// The day of the draw that lies `back` draws back, 1 being the newest.
int32_t day_of_draw(const ArchiveSession& session, cLotto& lotto, int32_t back) {
  // Not by GetDataEstrazioneDaConta: it takes a draw before the oldest for an error and logs it.
  const auto draws = lotto.LoadLottoEstr();
  require_answered(session, static_cast<bool>(draws));
  if (draws->record_count() < back)
    throw Failure(FailureKind::nothing_found, "the archive does not go back " +
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

ExitCode run_draw_show(const DrawShowOptions& options, const Context& context) {
  const WhichDraw which = which_draw(options);
  const ArchiveSession session = context.open_archive();
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  const int32_t day = which.day ? *which.day : day_of_draw(session, lotto, which.back);
  // Asked first: the library takes a date without rows for an error and logs it.
  some_rows_of_day(session, day);
  const auto draw = lotto.GetEstrazioneDaData(automation::Date::from_day(day));
  if (!draw) session.fail("the draw of " + shown_day(day) + " cannot be read, see " + log_path());
  context.show(describe(*draw, day));
  return ExitCode::ok;
}

}  // namespace

extern const Command draw_show_command{"show", Group::draws, "Show the numbers of a draw",
                                       "vestara draw show 2005-02-09", bound<add_draw_show, run_draw_show>};

}  // namespace vestara::host
