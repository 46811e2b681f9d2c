#include "hosts/cli/options/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <vector>

#include "hosts/cli/failure.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/draw_arguments.h"
#include "hosts/cli/options/number_arguments.h"
#include "hosts/cli/options/saved_arguments.h"
#include "hosts/cli/options/search_question.h"
#include "hosts/cli/options/study_arguments.h"
#include "hosts/cli/options/system_arguments.h"
#include "hosts/cli/version.h"
#include "vestara/draws/calendar.h"
#include "vestara/foundation/message_text.h"

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
  std::string limit;
  std::string class_name;
  std::string member;
  std::string on;
  SearchWords search;
  StudyArguments study;
  NumberArguments numbers;
  DrawArguments draw;
  SavedArguments saved;
  SystemArguments systems;
  std::vector<std::string> arguments;
  std::vector<std::string> settings;
  std::vector<std::string> reads;
  bool dry_run = false;
  bool keep_manual = false;
  bool add = false;
  bool no_backup = false;
  bool yes = false;
  bool replace = false;
  bool ascending = false;
  bool statistics = false;
  bool contest = false;
  bool all = false;
  bool json = false;
  bool get = false;
  bool put = false;
  bool putref = false;
  bool system = false;
};

void add_import(CLI::App& program, Given& given) {
  CLI::App& app = add_command(
      program, "import", "Bring the draws of a file into the archive",
      "vestara import storico.zip\n\n"
      "Without --add or --replace nothing is lost: the import is refused when a row of the archive would go\n"
      "or change. A file that begins later than the archive and agrees with it on a hundred rows is added\n"
      "to it. What is removed is kept in a file beside the archive, the last three times: its name ends in\n"
      ".removed-TIME.csv, and import --add takes it.");
  app.add_option("FILE", given.file, "the operator's text file, CSV or an update file, plain or zipped; - is stdin")
      ->type_name("")
      ->required();
  app.add_flag("--add", given.add, "keep what the file does not have; a row that differs refuses the import");
  app.add_flag("--replace", given.replace, "the file takes the archive's place; asks at a terminal");
  app.add_flag("--dry-run", given.dry_run, "check the file and say what would change");
  app.add_flag("--keep-manual", given.keep_manual, "keep the draws entered by hand that the file does not have");
  app.add_flag("--no-backup", given.no_backup, "do not keep what is removed");
  app.add_flag("--yes", given.yes, "replace without asking");
}

void add_generate(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "generate", "Write a made-up archive on the real calendar",
                              "vestara generate --seed 1 --from 1871-01-07 --to 2026-12-31 --output made-up.txt");
  value_option(app, "--seed", given.seed, "N", "the same number gives the same file")->required();
  add_range(app, given.from, given.to);
  for (const char* bound : {"--from", "--to"}) app.get_option(bound)->required();
  value_option(app, "--output", given.output, "FILE", "instead of standard output");
}

void add_archive(CLI::App& program) {
  add_command(program, "archive", "Say what the archive holds", "vestara archive --format json");
}

void add_search(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "search", "Find the draws that hold the numbers",
                              "vestara search 5,12,33 --hits ambo --wheels BA,NA --from 2005-01-01");
  SearchWords& words = given.search;
  app.add_option("NUMBERS", words.numbers, "1 to 90: 53, or 5,12,33, or 5 12 33")->type_name("")->required();
  add_hits_and_wheels(app, words.hits, words.wheels);
  add_range(app, words.from, words.to);
  app.add_flag("--asc", given.ascending, "oldest draw first");
  value_option(app, "--limit", given.limit, "N", "list N dates at most, in a table");
  app.add_flag("--statistics", given.statistics,
               "also say what the search amounts to: percentages, draws per hit, gaps; chance gives expected_…, "
               "the archive plain_effective_…; theoretical_… and effective_… are the library's");
}

void add_export(CLI::App& program, Given& given) {
  CLI::App& app =
      add_command(program, "export", "Write the archive as a file", "vestara export --as csv --output archive.csv");
  value_option(app, "--output", given.output, "FILE", "instead of standard output");
  value_option(app, "--as", given.written_as, "FORM",
               "csv (default), tsv: the operator's form, update: the library's own");
  app.add_flag("--contest", given.contest, "with the contest number, in CSV");
}

void add_copy(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "copy", "Make one archive hold what another holds, whatever the engines",
                              "vestara copy --from sqlite:archive.sqlite --to postgresql://user@host/vestara");
  value_option(app, "--from", given.from, "URL", "the archive that is read")->required();
  value_option(app, "--to", given.to, "URL", "the archive that is written; its tables are made where they are missing")
      ->required();
  app.add_flag("--replace", given.replace, "put the copy in the place of what the other archive holds");
}

void add_backup(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "backup", "Write the whole archive into a file, as it is at one moment",
                              "vestara backup 2026-11-22.sqlite\n\n"
                              "Others may read and write meanwhile. The file is an archive itself: --db sqlite:FILE "
                              "reads it.");
  app.add_option("FILE", given.file, "the file to write")->type_name("")->required();
  app.add_flag("--yes", given.yes, "replace a file without asking");
}

void add_restore(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "restore", "Make the archive hold what a backup holds",
                              "vestara restore 2026-11-22.sqlite --yes\n\n"
                              "The file is checked first. Everything is replaced at once or not at all, and compared;\n"
                              "others may read meanwhile. Any archive file will do, and any engine behind --db.");
  app.add_option("FILE", given.file, "a file of vestara backup, or another archive")->type_name("")->required();
  app.add_flag("--yes", given.yes, "replace without asking");
}

void add_doctor(CLI::App& program) {
  add_command(program, "doctor", "Look for what is wrong with the archive; changes nothing",
              "vestara doctor --db sqlite:archive.sqlite");
}

void add_describe(CLI::App& program, Given& given) {
  CLI::App& app = add_command(program, "describe", "Show the classes and members that programs call by name",
                              "vestara describe cLotto");
  app.add_option("CLASS", given.class_name, "as in Vestara.cLotto or cLotto; without it, the list of classes")
      ->type_name("");
  app.add_flag("--all", given.all, "every class, also those that are only handed out");
  app.add_flag("--json", given.json, "the same as --format json");
}

void add_call(CLI::App& program, Given& given) {
  CLI::App& app =
      add_command(program, "call", "Call a member by name and print what it gives as JSON",
                  "vestara call Vestara.cLotto LoadLottoEstr 5,12,33 2 bSortASC=true --read Ambi --limit 3\n\n"
                  "Arguments: 12, 1.5, true, null, empty, missing, nothing, 2005-02-09, 'text', NAME=VALUE;\n"
                  "anything else is a text, also in quotes, which a text that begins with - or [ needs.");
  app.add_option("CLASS", given.class_name, "as in Vestara.cLotto or cLotto")->type_name("")->required();
  app.add_option("MEMBER", given.member, "a method or property")->type_name("")->required();
  app.add_option("ARGUMENTS", given.arguments, "values, named ones last")->type_name("");
  app.add_flag("--get", given.get, "read a property; calling does the same");
  app.add_flag("--put", given.put, "assign the last argument");
  app.add_flag("--putref", given.putref, "assign an object");
  value_option(app, "--on", given.on, "PATH", "call the member of what this gives, as in \"Fields.Item(0)\"");
  const auto repeatable = [&](const char* name, std::vector<std::string>& place, const char* shape, const char* help) {
    app.add_option(name, place, help)->type_name(shape)->allow_extra_args(false);
  };
  repeatable("--set", given.settings, "NAME=VALUE", "assign a property before the call; may be repeated");
  repeatable("--read", given.reads, "NAME", "read a property after the call; may be repeated");
  value_option(app, "--limit", given.limit, "N", "N rows of a record set at most");
}

void add_registration(CLI::App& program, Given& given) {
  CLI::App& write = add_command(program, "register", "Make the classes known to programs that create them by name",
                                "vestara register");
  CLI::App& remove = add_command(program, "unregister", "Take the registration back", "vestara unregister");
  for (CLI::App* app : {&write, &remove}) app->add_flag("--system", given.system, "for all users rather than this one");
  add_command(program, "classes", "List the classes that can be created by name, and where they are found",
              "vestara classes --format json");
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
  add_studies(program, given.study);
  add_number_studies(program, given.numbers);
  add_export(program, given);
  add_copy(program, given);
  add_backup(program, given);
  add_restore(program, given);
  add_doctor(program);
  add_draw(program, given.draw);
  add_saved(program, given.saved);
  add_system(program, given.systems);
  add_describe(program, given);
  add_call(program, given);
  add_registration(program, given);
  program.footer(
      "Example:\n  vestara import storico.zip && vestara search 53 --wheels VE\n\n"
      "Exit codes: 0 ok, 1 nothing found or an error raised, 2 usage, 3 database, 4 file, 130 interrupted");
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

std::string names_of_commands(const CLI::App& group) {
  std::string names;
  for (const CLI::App* command : group.get_subcommands([](const CLI::App*) { return true; }))
    names.append(names.empty() ? "" : ", ").append(command->get_name());
  return names;
}

Failure unexpected(const CLI::App& program, const CLI::App* command, const std::string& argument) {
  const bool is_option = argument.size() > 1 && argument.front() == '-';
  if (is_option)
    return {ExitCode::usage,
            "option " + shown(argument) + " is unknown here; known are " + names_of_options(program, command)};
  if (command && !is_group(*command))
    return {ExitCode::usage,
            "argument " + shown(argument) + " is one too many; see vestara " + name_of(*command) + " --help"};
  const CLI::App& group = command ? *command : program;
  return {ExitCode::usage, "command " + shown(argument) + " is unknown; known are " + names_of_commands(group)};
}

Failure usage_failure(const CLI::App& program, const CLI::ParseError& error) {
  const CLI::App* command = given_command(program);
  const auto rest = program.remaining(true);
  if (!rest.empty()) return unexpected(program, command, rest.front());
  if (!command || is_group(*command))
    return {ExitCode::usage, "no command was given; commands are " + names_of_commands(command ? *command : program)};
  return {ExitCode::usage, std::string(error.what()) + "; see vestara " + name_of(*command) + " --help"};
}

ImportOptions import_options(const Given& given) {
  if (given.add && given.replace)
    throw Failure(ExitCode::usage, "--add and --replace exclude each other; give one of them");
  ImportOptions options;
  options.file = given.file;
  options.dry_run = given.dry_run;
  if (given.add) options.mode = ImportMode::add;
  if (given.replace) options.mode = ImportMode::replace;
  if (given.keep_manual) options.missing_manual = MissingManual::keep;
  if (given.no_backup) options.backup = Backup::none;
  if (given.yes) options.consent = Consent::given;
  return options;
}

SearchOptions search_options(const Given& given) {
  SearchOptions options = search_question(given.search);
  options.oldest_first = given.ascending;
  options.statistics = given.statistics;
  if (!given.limit.empty()) options.table_rows = count_value("--limit", given.limit);
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

CopyOptions copy_options(const Given& given) {
  return {given.from, given.to, given.replace ? HeldRows::replace : HeldRows::refuse};
}

DescribeOptions describe_options(const Given& given) {
  if (given.all && !given.class_name.empty())
    throw Failure(ExitCode::usage, "--all does not go with CLASS; give one of them");
  return {given.class_name, given.all, given.json};
}

automation::InvokeKind call_kind(const Given& given) {
  if (given.get + given.put + given.putref > 1)
    throw Failure(ExitCode::usage, "--get, --put and --putref exclude each other; give one of them");
  if (given.put) return automation::InvokeKind::put;
  if (given.putref) return automation::InvokeKind::putref;
  return given.get ? automation::InvokeKind::get : automation::InvokeKind::method;
}

CallOptions call_options(const Given& given) {
  CallOptions options{given.class_name, given.member, given.arguments, call_kind(given), given.on, {}, given.reads};
  for (const std::string& setting : given.settings) {
    const auto sign = setting.find('=');
    if (sign == std::string::npos || sign == 0)
      throw Failure(ExitCode::usage, "--set " + shown(setting) + " assigns nothing; write NAME=VALUE");
    options.settings.emplace_back(setting.substr(0, sign), setting.substr(sign + 1));
  }
  if (!given.limit.empty()) options.most_rows = count_value("--limit", given.limit);
  return options;
}

RegistrationOptions registration_options(const Given& given) {
  return {given.system ? automation::Scope::system : automation::Scope::user};
}

Command command_of(const CLI::App& program, const Given& given, OutputFormat format) {
  const std::string name = program.get_subcommands().front()->get_name();
  const std::string inner = given_command(program)->get_name();
  if (name == "import") return import_options(given);
  if (name == "generate") return generate_options(given);
  if (name == "search") return search_options(given);
  if (name == "distances") return distances_options(given.study, format);
  if (name == "probability") return probability_options(given.study);
  if (name == "combinations") return combinations_options(given.study);
  if (name == "delays") return delays_options(given.numbers);
  if (name == "frequencies") return frequencies_options(given.numbers);
  if (name == "table") return table_options(given.numbers);
  if (name == "gaps") return gaps_options(given.numbers, format);
  if (name == "export") return export_options(given);
  if (name == "copy") return copy_options(given);
  if (name == "backup") return BackupOptions{given.file, given.yes ? Consent::given : Consent::ask};
  if (name == "restore") return RestoreOptions{given.file, given.yes ? Consent::given : Consent::ask};
  if (name == "doctor") return DoctorOptions{};
  if (name == "draw") return draw_options(inner, given.draw);
  if (name == "saved") return saved_options(inner, given.saved);
  if (name == "system") return system_options(inner, given.systems);
  if (name == "describe") return describe_options(given);
  if (name == "call") return call_options(given);
  if (name == "register") return RegisterOptions{registration_options(given)};
  if (name == "unregister") return UnregisterOptions{registration_options(given)};
  if (name == "classes") return ClassesOptions{};
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
  options.command = command_of(program, given, options.format);
  return options;
}

}  // namespace vestara::host
