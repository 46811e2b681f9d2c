#include "hosts/cli/options/command_parts.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace vestara::host {

CLI::Option* value_option(CLI::App& app, const std::string& name, std::string& place, const std::string& shape,
                          const std::string& help) {
  return app.add_option(name, place, help)->type_name(shape)->take_last();
}

void add_range(CLI::App& app, std::string& from, std::string& to) {
  value_option(app, "--from", from, "DATE", "first date, YYYY-MM-DD or D/M/YYYY");
  value_option(app, "--to", to, "DATE", "last date");
}

void add_hits_and_wheels(CLI::App& app, std::string& hits, std::string& wheels) {
  value_option(app, "--hits", hits, "HITS",
               "numbers on one wheel at least: 1 to 5, or ambata (default), ambo, terno, quaterna, cinquina");
  value_option(app, "--wheels", wheels, "WHEELS", "BA,NA or all (default), or cities: the ten without RN");
}

CLI::App& add_command(CLI::App& program, const std::string& name, const std::string& help, const std::string& example) {
  CLI::App* app = program.add_subcommand(name, help);
  app->fallthrough();
  app->footer("Example:\n  " + example + "\n\nEvery command also takes --db, --format and --color: vestara --help");
  return *app;
}

CLI::App& add_group(CLI::App& program, const std::string& name, const std::string& help, const std::string& example) {
  CLI::App& app = add_command(program, name, help, example);
  app.require_subcommand(1);
  return app;
}

std::string name_of(const CLI::App& command) {
  const CLI::App* group = command.get_parent();
  if (!group || !group->get_parent()) return command.get_name();
  return name_of(*group) + " " + command.get_name();
}

bool is_group(const CLI::App& command) {
  return !command.get_subcommands([](const CLI::App*) { return true; }).empty();
}

const CLI::App* given_command(const CLI::App& program) {
  const auto given = program.get_subcommands();
  if (given.empty()) return nullptr;
  const CLI::App* inner = given_command(*given.front());
  return inner ? inner : given.front();
}

}  // namespace vestara::host
