#include <algorithm>
#include <array>
#include <string_view>

#include "automation/text.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/systems/start_numbers.h"

namespace vestara::host {
namespace {

struct SystemGenerateOptions {
  std::string set;
  std::string number;
  bool strict = false;
};

void add_system_generate(CLI::App& app, SystemGenerateOptions& options) {
  argument(app, "SET", options.set, "twins, reversibles, ending, fibonacci, tens or figure")->required();
  argument(app, "N", options.number, "the number that the last four begin with, 0 to 90");
  app.add_flag("--strict", options.strict, "the list of 1..90 that players expect");
}

/// A set, and the numbers that its plain list may begin with.
struct KnownSet {
  NumberSet set;
  std::string_view name;
  int16_t least = 0;
  int16_t most = 0;  ///< 0 for sets without a number
};
constexpr std::array sets{
    KnownSet{NumberSet::twins, "twins"},          KnownSet{NumberSet::reversibles, "reversibles"},
    KnownSet{NumberSet::ending, "ending", 0, 10}, KnownSet{NumberSet::fibonacci, "fibonacci", 1, 90},
    KnownSet{NumberSet::tens, "tens", 1, 81},     KnownSet{NumberSet::figure, "figure", 1, 9}};

KnownSet set_named(const std::string& name) {
  std::string names;
  for (const KnownSet& set : sets) {
    if (automation::equal_ignoring_case(name, set.name)) return set;
    names.append(names.empty() ? "one of " : ", ").append(set.name);
  }
  throw Failure(FailureKind::argument, "SET " + shown(name) + " is not known; " + names);
}

void check_plain(const KnownSet& set, int16_t number) {
  const bool is_tens = set.set == NumberSet::tens;
  if ((number >= set.least && number <= set.most) || (is_tens && number == number_count)) return;
  throw Failure(FailureKind::argument, std::string(set.name) + " " + std::to_string(number) +
                                           " has no whole list in 1 to 90; with --strict N is " +
                                           std::to_string(set.least) + " to " + std::to_string(set.most) +
                                           (is_tens ? ", or 90" : ""));
}

SetQuestion set_question(const SystemGenerateOptions& options) {
  const KnownSet set = set_named(options.set);
  SetQuestion question{set.set, 0, options.strict ? Reach::plain : Reach::library};
  const bool takes_number = set.most != 0;
  if (options.number.empty() == takes_number)
    throw Failure(FailureKind::argument,
                  takes_number ? std::string(set.name) + " needs a number; as in vestara system generate " +
                                     std::string(set.name) + " 1"
                               : std::string(set.name) + " takes no number; leave " + shown(options.number) + " out");
  if (!takes_number) return question;
  question.number = static_cast<int16_t>(whole_value("N", options.number, 0, number_count));
  if (options.strict) check_plain(set, question.number);
  return question;
}

std::string_view set_name(NumberSet set) {
  return std::find_if(sets.begin(), sets.end(), [&](const KnownSet& each) { return each.set == set; })->name;
}

ExitCode run_system_generate(const SystemGenerateOptions& options, const Context& context) {
  const SetQuestion question = set_question(options);
  const std::string numbers = numbers_of_set(question);
  Report report;
  report.facts = {{"set", std::string(set_name(question.set))}};
  show_numbers(report, numbers, context);
  if (!numbers.empty()) return ExitCode::ok;
  context.remark("the library's list of a figure stops at 80; 1 to 9 with --strict is a whole one");
  return ExitCode::nothing_found;
}

}  // namespace

extern const Command system_generate_command{
    "generate", Group::bets, "List a set of numbers that players start from",
    "vestara system generate tens 21 --strict\n\n"
    "twins         numbers of two equal digits\n"
    "reversibles   numbers beside those with the digits exchanged\n"
    "ending N      numbers ten apart, from N up to 90; ending 0 begins with 0\n"
    "fibonacci N   ten numbers, each the sum of the two before, also beyond 90\n"
    "tens N        eleven numbers from N on, also beyond 90; for 90 its ten\n"
    "figure N      numbers nine apart from N on, up to 80\n"
    "These are the library's lists. --strict keeps to 1..90: ten numbers of the ten, all numbers of\n"
    "the figure, fibonacci numbers up to 90.",
    bound<add_system_generate, run_system_generate>};

}  // namespace vestara::host
