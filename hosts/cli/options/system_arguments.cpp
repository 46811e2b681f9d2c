#include "hosts/cli/options/system_arguments.h"

#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/system_values.h"

namespace vestara::host {
namespace {

void add_id(CLI::App& app, SystemArguments& given) {
  app.add_option("ID", given.id, "as in vestara system list")->type_name("")->required();
}

void add_output(CLI::App& app, SystemArguments& given) {
  value_option(app, "--output", given.output, "FILE", "a combination a line into a file, - for standard output");
}

void add_generate(CLI::App& system, SystemArguments& given) {
  CLI::App& app =
      add_command(system, "generate", "List a set of numbers that players start from",
                  "vestara system generate tens 21 --strict\n\n"
                  "twins         numbers of two equal digits\n"
                  "reversibles   numbers beside those with the digits exchanged\n"
                  "ending N      numbers ten apart, from N up to 90; ending 0 begins with 0\n"
                  "fibonacci N   ten numbers, each the sum of the two before, also beyond 90\n"
                  "tens N        eleven numbers from N on, also beyond 90; for 90 its ten\n"
                  "figure N      numbers nine apart from N on, up to 80\n"
                  "These are the library's lists. --strict keeps to 1..90: ten numbers of the ten, all numbers of\n"
                  "the figure, fibonacci numbers up to 90.");
  app.add_option("SET", given.set, "twins, reversibles, ending, fibonacci, tens or figure")->type_name("")->required();
  app.add_option("N", given.set_number, "the number that the last four begin with, 0 to 90")->type_name("");
  app.add_flag("--strict", given.strict, "the list of 1..90 that players expect");
}

void add_random(CLI::App& system, SystemArguments& given) {
  CLI::App& app = add_command(system, "random", "Draw random numbers", "vestara system random --count 10 --sort");
  value_option(app, "--count", given.count, "K", "how many, up to 1000000")->required();
  value_option(app, "--from", given.from, "N", "smallest number, 0 or more (default 1)");
  value_option(app, "--to", given.to, "N", "largest number (default 90)");
  app.add_flag("--repeat", given.repeat, "a number may come again");
  app.add_flag("--sort", given.sorted, "in ascending order");
}

void add_integral(CLI::App& system, SystemArguments& given) {
  CLI::App& app =
      add_command(system, "integral", "List all ways to choose some of the numbers",
                  "vestara system integral 5,7,9,11 --size 3 --output system.txt\n\n"
                  "The library makes the whole text before the first line is written: at most 12 numbers in a\n"
                  "combination and 1 GiB of text. vestara combinations has no such limits. Ctrl-C ends it with\n"
                  "exit code 130.");
  app.add_option("NUMBERS", given.numbers, "1 to 90: 53, or 5,12,33, or 5 12 33")->type_name("")->required();
  value_option(app, "--size", given.size, "K", "numbers in a combination")->required();
  app.add_flag("--count-only", given.count_only, "say how many there are");
  add_output(app, given);
}

void add_save(CLI::App& system, SystemArguments& given) {
  CLI::App& app = add_command(
      system, "save", "Keep a system, and say under which ID",
      "vestara system save system.txt --title \"four numbers\" --guarantee 2\n\n"
      "A line of the file is a combination: different numbers of 1 to 90 between commas, blanks or tabs.\n"
      "Empty lines and what follows a # do not count. A system that replaces another is a new one with the\n"
      "next free ID; the old one goes only when the new one is there whole.");
  app.add_option("FILE", given.source, "a combination a line; - is stdin")->type_name("")->required();
  value_option(app, "--title", given.title, "TEXT", "what lists show; any text")->required();
  value_option(app, "--description", given.description, "TEXT", "any text");
  value_option(app, "--bets", given.bets, "N", "bets to play; without it, one for each of up to 32767 combinations");
  value_option(app, "--guarantee", given.guarantee, "N", "what the system guarantees, 0 (default) for nothing");
  value_option(app, "--id", given.replacing, "ID", "in place of this system");
  app.add_flag("--yes", given.yes, "replace without asking");
}

void add_list(CLI::App& system, SystemArguments& given) {
  CLI::App& app = add_command(system, "list", "List the systems that are kept, by ID",
                              "vestara system list --title four --format json");
  value_option(app, "--title", given.title, "TEXT", "found anywhere in the title, in capitals or not");
  value_option(app, "--description", given.description, "TEXT", "found anywhere in the description");
  value_option(app, "--kind", given.kind, "KIND", "U: saved by a user, S: another kind");
  value_option(app, "--numbers", given.chosen, "N", "how many different numbers it plays");
  value_option(app, "--size", given.size, "K", "numbers in a combination");
  value_option(app, "--bets", given.bets, "N", "as given when it was saved");
  value_option(app, "--guarantee", given.guarantee, "N", "the same");
}

void add_show(CLI::App& system, SystemArguments& given) {
  CLI::App& app =
      add_command(system, "show", "Show a system and its combinations",
                  "vestara system show 1 --numbers 10,20,30 --output system.txt\n\n"
                  "--numbers is for systems whose combinations are positions: the first number stands for 1, the\n"
                  "second for 2. A system of kind S holds the numbers themselves.");
  add_id(app, given);
  value_option(app, "--numbers", given.chosen, "NUMBERS", "to stand where the system has positions");
  add_output(app, given);
}

void add_convert(CLI::App& system, SystemArguments& given) {
  CLI::App& app =
      add_command(system, "convert", "Play a system with other numbers",
                  "vestara system convert 1 --numbers 10,20,30 --output system.txt\n\n"
                  "The first number stands for the smallest of the system, the second for the next one, and so on.\n"
                  "Nothing is saved; vestara system save takes the file. A file whose name is a number: ./1");
  app.add_option("ID|FILE", given.source, "as in vestara system list, or a combination a line; - is stdin")
      ->type_name("")
      ->required();
  value_option(app, "--numbers", given.chosen, "NUMBERS", "as many as the system has")->required();
  add_output(app, given);
}

void add_delete(CLI::App& system, SystemArguments& given) {
  CLI::App& app = add_command(system, "delete", "Forget a system", "vestara system delete 1 --yes");
  add_id(app, given);
  app.add_flag("--yes", given.yes, "delete without asking");
}

}  // namespace

void add_system(CLI::App& program, SystemArguments& given) {
  CLI::App& system =
      add_group(program, "system", "Make betting systems and keep them", "vestara system generate twins");
  add_generate(system, given);
  add_random(system, given);
  add_integral(system, given);
  add_save(system, given);
  add_list(system, given);
  add_show(system, given);
  add_convert(system, given);
  add_delete(system, given);
}

SystemOptions system_options(const std::string& command, const SystemArguments& given) {
  if (command == "generate") return system_generate_options(given);
  if (command == "random") return system_random_options(given);
  if (command == "integral") return system_integral_options(given);
  if (command == "save") return system_save_options(given);
  if (command == "list") return system_list_options(given);
  if (command == "show") return system_show_options(given);
  if (command == "convert") return system_convert_options(given);
  return system_delete_options(given);
}

}  // namespace vestara::host
