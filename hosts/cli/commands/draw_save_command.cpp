#include <array>
#include <limits>
#include <optional>
#include <vector>

#include "automation/date.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/draw_rows.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/draw_entry.h"
#include "hosts/cli/options/option_values.h"
#include "vestara/archive/lotto.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/foundation/wheels.h"
#include "vestara/keeping/archive_counts.h"
#include "vestara/keeping/import/draw_insertion.h"
#include "vestara/keeping/import/manual_marks.h"

namespace vestara::host {
namespace {

struct DrawSaveOptions {
  std::string date;
  std::string contest;
  std::array<std::string, wheel_count> wheels;  ///< by enumerator, from 0
  std::string numbers;
  std::string file;  ///< a file of draws; "-" is standard input
  Consent consent = Consent::ask;
};

std::string wheel_option(size_t place) { return "--" + std::string(wheel_code(static_cast<int32_t>(place) + 1)); }

void add_draw_save(CLI::App& app, DrawSaveOptions& options) {
  argument(app, "DATE", options.date, "YYYY-MM-DD or D/M/YYYY")->required();
  value_option(app, "--contest", options.contest, "N", "contest number; without it, the place of the date in its year");
  for (size_t i = 0; i < options.wheels.size(); ++i)
    value_option(app, wheel_option(i), options.wheels[i], "NUMBERS",
                 std::string(wheel_name(static_cast<int32_t>(i) + 1)) + ": five, in order of extraction");
  value_option(app, "--numbers", options.numbers, "LINE",
               "instead: five for each wheel, BA first, or wheels each with their five behind them");
  value_option(app, "--file", options.file, "FILE", "instead: the rows of DATE in a file as for import; - is stdin");
  add_yes(app, options.consent, "store and replace without asking");
}

/// A draw as it is to be stored.
struct DrawToSave {
  int32_t day = 0;
  std::optional<int16_t> contest;  ///< without it, the place of the day in its year
  std::vector<DrawRow> rows;       ///< sorted by wheel
  Consent consent = Consent::ask;
};

std::vector<DrawRow> rows_by_option(const DrawSaveOptions& options, int32_t day) {
  std::vector<DrawRow> rows;
  for (size_t i = 0; i < options.wheels.size(); ++i)
    if (!options.wheels[i].empty())
      rows.push_back({day, 0, static_cast<int8_t>(i + 1), drawn_numbers_value(wheel_option(i), options.wheels[i])});
  return rows;
}

std::vector<DrawRow> rows_given(const DrawSaveOptions& options, int32_t day) {
  std::vector<DrawRow> rows = rows_by_option(options, day);
  if ((rows.empty() ? 0 : 1) + (options.numbers.empty() ? 0 : 1) + (options.file.empty() ? 0 : 1) > 1)
    throw Failure(FailureKind::argument, "numbers are given in two ways; give them by wheel, or --numbers, or --file");
  if (!options.numbers.empty()) rows = read_draw_line(options.numbers, day);
  if (!options.file.empty()) return rows_in_file(options.file, day);
  if (rows.empty())
    throw Failure(FailureKind::argument, "no numbers are given; give them by wheel, or --numbers, or --file");
  return rows;
}

DrawToSave draw_to_save(const DrawSaveOptions& options) {
  DrawToSave draw;
  draw.day = day_value("DATE", options.date);
  if (!options.contest.empty())
    draw.contest =
        static_cast<int16_t>(whole_value("--contest", options.contest, 1, std::numeric_limits<int16_t>::max()));
  draw.rows = rows_given(options, draw.day);
  draw.consent = options.consent;
  return draw;
}

/// The archive's own table of wheels decides under which code a row is stored.
void require_wheel_codes(const ArchiveSession& session) {
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel)
    if (alias_of(wheel) != wheel_code(wheel))
      session.fail("the archive's table of wheels does not have " + std::string(wheel_code(wheel)) + " as number " +
                   std::to_string(wheel) + ", nothing was changed");
}

/// What a save finds and does.
struct Saved {
  int16_t contest = 0;
  int32_t replaced = 0;
};

/// The rows and the mark together, in place of what the archive holds of the day. `expected`: rows that may be
/// replaced.
Saved store(const ArchiveSession& session, const DrawToSave& draw, int32_t expected) {
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  require_wheel_codes(session);
  ManualMarks marks(session);
  marks.make_table();
  Transaction transaction(session);
  const Saved saved{draw.contest ? *draw.contest : position_in_year(session, draw.day), rows_of_day(session, draw.day)};
  if (saved.replaced > expected && draw.consent == Consent::ask)
    throw Failure(FailureKind::database, "another program stored " + rows_in_words(saved.replaced, draw.day) +
                                             " meanwhile, nothing was changed; --yes replaces them");
  std::vector<DrawRow> rows = draw.rows;
  for (DrawRow& row : rows) row.contest = saved.contest;
  delete_draws(session, draw.day);
  insert_draws(session, rows);
  marks.add(draw.day);
  transaction.commit();
  return saved;
}

/// What is unusual about a draw is asked before what it replaces.
void require_usual(const DrawToSave& draw, const Context& context) {
  require_drawn_wheels(draw.rows, draw.day);
  if (const std::string missing = missing_wheels(draw.rows, draw.day); !missing.empty())
    context.require_consent(draw.consent, "store the draw of " + shown_day(draw.day) + " without " + missing);
  if (draw.day > automation::now().day())
    context.require_consent(draw.consent, "store a draw of " + shown_day(draw.day) + ", which is in the future");
}

ExitCode run_draw_save(const DrawSaveOptions& options, const Context& context) {
  const DrawToSave draw = draw_to_save(options);
  require_usual(draw, context);
  const ArchiveSession session = context.open_archive();
  const int32_t held = rows_of_day(session, draw.day);
  if (held != 0) context.require_consent(draw.consent, "replace " + rows_in_words(held, draw.day));
  const Saved saved = store(session, draw, held);
  Report report;
  report.facts = {{"result", saved.replaced == 0 ? "saved" : "replaced"},
                  {"date", shown_day(draw.day)},
                  {"contest", int64_t{saved.contest}},
                  {"rows", static_cast<int64_t>(draw.rows.size())},
                  {"replaced", int64_t{saved.replaced}}};
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command draw_save_command{
    "save", Group::draws, "Store a draw entered by hand, in place of what the archive holds of its date",
    "vestara draw save 2026-08-22 --BA 1,2,3,4,5 --CA 6,7,8,9,10 --FI 11,12,13,14,15 \\\n"
    "    --GE 16,17,18,19,20 --MI 21,22,23,24,25 --NA 26,27,28,29,30 --PA 31,32,33,34,35 \\\n"
    "    --RM 36,37,38,39,40 --TO 41,42,43,44,45 --VE 46,47,48,49,50 --RN 51,52,53,54,55\n"
    "  vestara draw save 1871-01-14 --numbers \"VE 53,31,88,28,77 RM 1,2,3,4,5\" --yes\n\n"
    "The wheels are those that there were: eleven since 2005-05-04, ten since 1939-07-08, before that\n"
    "eight or seven. With fewer before 2005, and with a date in the future, it asks.",
    bound<add_draw_save, run_draw_save>};

}  // namespace vestara::host
