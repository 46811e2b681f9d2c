#include <variant>

#include "hosts/vestara/archive_counts.h"
#include "hosts/vestara/commands.h"
#include "hosts/vestara/draw_show.h"
#include "hosts/vestara/manual_marks.h"
#include "hosts/vestara/shown_text.h"
#include "hosts/vestara/wheel_names.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/wheels.h"

namespace vestara::host {
namespace {

using automation::Date;

std::string rows_in_words(int32_t rows, int32_t day) {
  return "the " + counted(static_cast<size_t>(rows), "row") + " of " + shown_day(day);
}

/// The archive's own table of wheels decides under which code a row is stored.
void require_wheel_codes(const ArchiveSession& session) {
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel)
    if (alias_of(wheel) != wheel_code(wheel))
      session.fail("the archive's table of wheels does not have " + std::string(wheel_code(wheel)) + " as number " +
                   std::to_string(wheel) + ", nothing was changed");
}

automation::Ref<cEstrazione> record_of(const DrawSaveOptions& options, int16_t contest) {
  constexpr int32_t first_position = 2;
  auto draw = automation::make<cEstrazione>();
  draw->DataEstrazione(Date::from_day(options.day));
  draw->NumeroConcorso(contest);
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel) {
    int32_t position = first_position;
    for (const int8_t number : options.numbers.at(static_cast<size_t>(wheel - 1)))
      draw->AddNumero(wheel, position++, std::to_string(number));
  }
  return draw;
}

/// The mark comes first and the draw has a transaction of its own: an end in between leaves a mark without a draw,
/// never a draw without its mark.
void store(const ArchiveSession& session, const DrawSaveOptions& options, int16_t contest) {
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  require_wheel_codes(session);
  ManualMarks marks(session);
  NewMark mark(session, marks, options.day);
  if (!lotto.SalvaEstrazione(record_of(options, contest)))
    session.fail("the draw could not be saved, nothing was changed, see " + log_path());
  mark.keep();
}

/// The rows and the mark together. Returns how many rows there were.
int32_t remove(const ArchiveSession& session, int32_t day) {
  const ManualMarks marks(session);
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  Transaction transaction(session);
  const int32_t rows = rows_of_day(session, day);
  if (!lotto.DelEstrazione(Date::from_day(day)) || !marks.remove(day))
    session.fail("the draw could not be deleted, nothing was changed");
  transaction.commit();
  return rows;
}

Report save(const DrawSaveOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_change(context.options.database);
  const int32_t replaced = rows_of_day(session, options.day);
  if (replaced != 0) require_consent(options.consent, "replace " + rows_in_words(replaced, options.day), context.err);
  const int16_t contest = options.contest ? *options.contest : position_in_year(session, options.day);
  store(session, options, contest);
  Report report;
  report.facts = {{"result", replaced == 0 ? "saved" : "replaced"},
                  {"date", shown_day(options.day)},
                  {"contest", int64_t{contest}},
                  {"rows", int64_t{wheel_count}},
                  {"replaced", int64_t{replaced}}};
  return report;
}

Report erase(const DrawDeleteOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_change(context.options.database);
  const int32_t held = some_rows_of_day(session, options.day);
  require_consent(options.consent, "delete " + rows_in_words(held, options.day), context.err);
  const int32_t gone = remove(session, options.day);
  Report report;
  report.facts = {{"result", "deleted"}, {"date", shown_day(options.day)}, {"rows", int64_t{gone}}};
  return report;
}

struct ReportOf {
  const Context& context;

  Report operator()(const DrawShowOptions& options) const {
    return draw_report(ArchiveSession::for_reading(context.options.database), options);
  }
  Report operator()(const DrawSaveOptions& options) const { return save(options, context); }
  Report operator()(const DrawDeleteOptions& options) const { return erase(options, context); }
};

}  // namespace

ExitCode run_draw(const DrawOptions& options, const Context& context) {
  write_report(context.out, std::visit(ReportOf{context}, options), context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
