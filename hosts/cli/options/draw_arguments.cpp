#include "hosts/cli/options/draw_arguments.h"

#include <limits>

#include "hosts/cli/failure.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/draw_entry.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

std::string wheel_option(size_t place) { return "--" + std::string(wheel_code(static_cast<int32_t>(place) + 1)); }

CLI::Option* add_date(CLI::App& app, DrawArguments& given) {
  return app.add_option("DATE", given.date, "YYYY-MM-DD or D/M/YYYY")->type_name("");
}

void add_show(CLI::App& draw, DrawArguments& given) {
  CLI::App& app = add_command(draw, "show", "Show the numbers of a draw", "vestara draw show 2005-02-09");
  add_date(app, given);
  value_option(app, "--back", given.back, "N", "instead of a date: 1 is the newest draw, 2 the one before");
}

void add_save(CLI::App& draw, DrawArguments& given) {
  CLI::App& app =
      add_command(draw, "save", "Store a draw entered by hand, in place of what the archive holds of its date",
                  "vestara draw save 2026-08-22 --BA 1,2,3,4,5 --CA 6,7,8,9,10 --FI 11,12,13,14,15 \\\n"
                  "    --GE 16,17,18,19,20 --MI 21,22,23,24,25 --NA 26,27,28,29,30 --PA 31,32,33,34,35 \\\n"
                  "    --RM 36,37,38,39,40 --TO 41,42,43,44,45 --VE 46,47,48,49,50 --RN 51,52,53,54,55\n"
                  "  vestara draw save 1871-01-14 --numbers \"VE 53,31,88,28,77 RM 1,2,3,4,5\" --yes\n\n"
                  "The wheels are those that there were: eleven since 2005-05-04, ten since 1939-07-08, before that\n"
                  "eight or seven. With fewer before 2005, and with a date in the future, it asks.");
  add_date(app, given)->required();
  value_option(app, "--contest", given.contest, "N", "contest number; without it, the place of the date in its year");
  for (size_t i = 0; i < given.wheels.size(); ++i)
    value_option(app, wheel_option(i), given.wheels[i], "NUMBERS",
                 std::string(wheel_name(static_cast<int32_t>(i) + 1)) + ": five, in order of extraction");
  value_option(app, "--numbers", given.numbers, "LINE",
               "instead: five for each wheel, BA first, or wheels each with their five behind them");
  value_option(app, "--file", given.file, "FILE", "instead: the rows of DATE in a file as for import; - is stdin");
  app.add_flag("--yes", given.yes, "store and replace without asking");
}

void add_delete(CLI::App& draw, DrawArguments& given) {
  CLI::App& app =
      add_command(draw, "delete", "Remove all rows of a date from the archive", "vestara draw delete 2026-08-22 --yes");
  add_date(app, given)->required();
  app.add_flag("--yes", given.yes, "delete without asking");
}

DrawShowOptions show_options(const DrawArguments& given) {
  if (given.date.empty() == given.back.empty())
    throw Failure(ExitCode::usage, "which draw? give either DATE or --back N; --back 1 is the newest");
  if (!given.date.empty()) return {day_value("DATE", given.date), 0};
  return {std::nullopt, whole_value("--back", given.back, 1, std::numeric_limits<int32_t>::max())};
}

std::vector<DrawRow> rows_by_option(const DrawArguments& given, int32_t day) {
  std::vector<DrawRow> rows;
  for (size_t i = 0; i < given.wheels.size(); ++i)
    if (!given.wheels[i].empty())
      rows.push_back({day, 0, static_cast<int8_t>(i + 1), drawn_numbers_value(wheel_option(i), given.wheels[i])});
  return rows;
}

DrawSaveOptions save_options(const DrawArguments& given) {
  DrawSaveOptions options;
  options.day = day_value("DATE", given.date);
  if (!given.contest.empty())
    options.contest =
        static_cast<int16_t>(whole_value("--contest", given.contest, 1, std::numeric_limits<int16_t>::max()));
  options.consent = given.yes ? Consent::given : Consent::ask;
  options.rows = rows_by_option(given, options.day);
  options.file = given.file;
  if ((options.rows.empty() ? 0 : 1) + (given.numbers.empty() ? 0 : 1) + (given.file.empty() ? 0 : 1) > 1)
    throw Failure(ExitCode::usage, "numbers are given in two ways; give them by wheel, or --numbers, or --file");
  if (!given.numbers.empty()) options.rows = read_draw_line(given.numbers, options.day);
  if (!given.file.empty()) return options;
  if (options.rows.empty())
    throw Failure(ExitCode::usage, "no numbers are given; give them by wheel, or --numbers, or --file");
  require_drawn_wheels(options.rows, options.day);
  return options;
}

}  // namespace

void add_draw(CLI::App& program, DrawArguments& given) {
  CLI::App& draw = add_group(program, "draw", "Show, store or delete one draw", "vestara draw show --back 1");
  add_show(draw, given);
  add_save(draw, given);
  add_delete(draw, given);
}

DrawOptions draw_options(const std::string& command, const DrawArguments& given) {
  if (command == "show") return show_options(given);
  if (command == "save") return save_options(given);
  return DrawDeleteOptions{day_value("DATE", given.date), given.yes ? Consent::given : Consent::ask};
}

}  // namespace vestara::host
