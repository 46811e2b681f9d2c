#include "hosts/vestara/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <vector>

#include "hosts/vestara/calendar.h"
#include "hosts/vestara/failure.h"
#include "hosts/vestara/shown_text.h"
#include "hosts/vestara/version.h"

namespace vestara::host {
namespace {

/// The texts as they were given; options that share a name share their place.
struct Given {
  std::string database;
  std::string format = "table";
  std::string colour = "auto";
  std::string file;
  std::string seed;
  std::string from;
  std::string to;
  std::string output;
  std::string written_as = "csv";
  std::string hits = "1";
  std::string wheels = "all";
  std::string limit;
  std::vector<std::string> numbers;
  bool dry_run = false;
  bool ascending = false;
  bool contest = false;
};

CLI::Option* value_option(CLI::App& app, const std::string& name, std::string& place, const std::string& shape,
                          const std::string& help) {
  return app.add_option(name, place, help)->type_name(shape)->take_last();
}

void add_range(CLI::App& app, Given& given) {
  value_option(app, "--from", given.from, "DATE", "first date, YYYY-MM-DD or D/M/YYYY");
  value_option(app, "--to", given.to, "DATE", "last date");
}

CLI::App& add_command(CLI::App& program, const std::string& name, const std::string& help, const std::string& example) {
  CLI::App* app = program.add_subcommand(name, help);
  app->fallthrough();
  app->footer("Example:\n  " + example + "\n\nEvery command also takes --db, --format and --color: vestara --help");
  return *app;
}

void add_import(CLI::App& program, Given& given) {
  CLI::App& app =
      add_command(program, "import", "Replace the archive by the draws of a file", "vestara import storico.zip");
  app.add_option("FILE", given.file, "the operator's text file, CSV or an update file, plain or zipped; - is stdin")
      ->type_name("")
      ->required();
  app.add_flag("--dry-run", given.dry_run, "check the file and say what would change");
}

void add_generate(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "generate", "Write a made-up archive on the real calendar",
                              "vestara generate --seed 1 --from 1871-01-07 --to 2026-12-31 --output made-up.txt");
  value_option(app, "--seed", given.seed, "N", "the same number gives the same file")->required();
  add_range(app, given);
  for (const char* bound : {"--from", "--to"}) app.get_option(bound)->required();
  value_option(app, "--output", given.output, "FILE", "instead of standard output");
}

void add_archive(CLI::App& program) {
  add_command(program, "archive", "Say what the archive holds", "vestara archive --format json");
}

void add_search(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "search", "Find the draws that hold the numbers",
                              "vestara search 5,12,33 --hits ambo --wheels BA,NA --from 2005-01-01");
  app.add_option("NUMBERS", given.numbers, "1 to 90: 53, or 5,12,33, or 5 12 33")->type_name("")->required();
  value_option(app, "--hits", given.hits, "HITS",
               "numbers on one wheel at least: 1 to 5, or ambata (default), ambo, terno, quaterna, cinquina");
  value_option(app, "--wheels", given.wheels, "WHEELS", "BA,NA or all (default), or cities: the ten without RN");
  add_range(app, given);
  app.add_flag("--asc", given.ascending, "oldest draw first");
  value_option(app, "--limit", given.limit, "N", "list N dates at most, in a table");
}

void add_export(CLI::App& program, Given& given) {
  CLI::App& app =
      add_command(program, "export", "Write the archive as a file", "vestara export --as csv --output archive.csv");
  value_option(app, "--output", given.output, "FILE", "instead of standard output");
  value_option(app, "--as", given.written_as, "FORM",
               "csv (default), tsv: the operator's form, update: the library's own");
  app.add_flag("--contest", given.contest, "with the contest number, in CSV");
}

void describe_program(CLI::App& program, Given& given) {
  program.set_version_flag("--version", "vestara " + std::string(program_version), "print the version");
  value_option(program, "--db", given.database, "URL",
               "the archive, as in sqlite:PATH; else VESTARA_DB, else a file in the user's data folder");
  value_option(program, "--format", given.format, "FORMAT", "table (default), csv, json, jsonl or markdown");
  value_option(program, "--color", given.colour, "WHEN", "auto (default), always or never; auto minds NO_COLOR");
  program.require_subcommand(1);
  add_import(program, given);
  add_generate(program, given);
  add_archive(program);
  add_search(program, given);
  add_export(program, given);
  program.footer(
      "Example:\n  vestara import storico.zip && vestara search 53 --wheels VE\n\n"
      "Exit codes: 0 ok, 1 nothing found, 2 usage, 3 database, 4 file");
}

/// "--hits, --wheels, …, --db, --format, --color"
std::string names_of_options(const CLI::App& program, const CLI::App* command) {
  std::string names;
  for (const CLI::App* app : {command, &program}) {
    if (!app) continue;
    for (const CLI::Option* option : app->get_options())
      if (option->nonpositional() && option != app->get_help_ptr())
        names.append(names.empty() ? "" : ", ").append(option->get_name());
  }
  return names;
}

std::string names_of_commands(const CLI::App& program) {
  std::string names;
  for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; }))
    names.append(names.empty() ? "" : ", ").append(command->get_name());
  return names;
}

Failure unexpected(const CLI::App& program, const CLI::App* command, const std::string& argument) {
  const bool is_option = argument.size() > 1 && argument.front() == '-';
  if (is_option)
    return {ExitCode::usage,
            "option " + shown(argument) + " is unknown here; known are " + names_of_options(program, command)};
  if (command)
    return {ExitCode::usage,
            "argument " + shown(argument) + " is one too many; see vestara " + command->get_name() + " --help"};
  return {ExitCode::usage, "command " + shown(argument) + " is unknown; known are " + names_of_commands(program)};
}

Failure usage_failure(const CLI::App& program, const CLI::ParseError& error) {
  const auto commands = program.get_subcommands();
  const CLI::App* command = commands.empty() ? nullptr : commands.front();
  const auto rest = program.remaining(true);
  if (!rest.empty()) return unexpected(program, command, rest.front());
  if (!command) return {ExitCode::usage, "no command was given; commands are " + names_of_commands(program)};
  return {ExitCode::usage, std::string(error.what()) + "; see vestara " + command->get_name() + " --help"};
}

SearchOptions search_options(const Given& given) {
  SearchOptions options;
  options.numbers = numbers_value(given.numbers);
  options.hits = hits_value(given.hits);
  options.wheels = wheels_value(given.wheels);
  options.from = day_bound("--from", given.from);
  options.to = day_bound("--to", given.to);
  options.oldest_first = given.ascending;
  if (!given.limit.empty()) options.table_rows = count_value("--limit", given.limit);
  check_range(options.from, options.to);
  if (options.numbers.count < static_cast<size_t>(options.hits))
    throw Failure(ExitCode::usage, "--hits " + std::to_string(options.hits) + " cannot come of " +
                                       counted(options.numbers.count, "number") + "; give as many numbers as hits");
  return options;
}

GenerateOptions generate_options(const Given& given) {
  GenerateOptions options{count_value("--seed", given.seed), day_value("--from", given.from),
                          day_value("--to", given.to), given.output};
  check_range(options.from, options.to);
  return options;
}

ExportOptions export_options(const Given& given) {
  ExportOptions options{given.output, draw_format(given.written_as),
                        given.contest ? ContestColumn::present : ContestColumn::absent};
  if (given.contest && options.format != DrawFormat::csv)
    throw Failure(ExitCode::usage, "--contest does not go with --as " + std::string(format_name(options.format)) +
                                       "; it adds a column to CSV, update files always have the number");
  return options;
}

Command command_of(const CLI::App& program, const Given& given) {
  const std::string name = program.get_subcommands().front()->get_name();
  if (name == "import") return ImportOptions{given.file, given.dry_run};
  if (name == "generate") return generate_options(given);
  if (name == "search") return search_options(given);
  if (name == "export") return export_options(given);
  return ArchiveOptions{};
}

}  // namespace

Options parse_command_line(int argc, const char* const* argv) {
  CLI::App program("Keeps and studies the archive of the Italian Lotto", "vestara");
  Given given;
  describe_program(program, given);
  Options options;
  try {
    program.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    options.command = TextWanted{program.help()};
    return options;
  } catch (const CLI::CallForVersion& version) {
    options.command = TextWanted{std::string(version.what()) + "\n"};
    return options;
  } catch (const CLI::ParseError& error) {
    throw usage_failure(program, error);
  }
  options.database = given.database;
  options.format = output_format(given.format);
  options.colour = colour_choice(given.colour);
  options.command = command_of(program, given);
  return options;
}

}  // namespace vestara::host
