#include "hosts/cli/options/system_values.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/keeping/saved_systems.h"

namespace vestara::host {
namespace {

/// A set, and the numbers that its plain list may begin with.
struct Set {
  NumberSet set;
  std::string_view name;
  int16_t least = 0;
  int16_t most = 0;  ///< 0 for sets without a number
};
constexpr std::array sets{Set{NumberSet::twins, "twins"},          Set{NumberSet::reversibles, "reversibles"},
                          Set{NumberSet::ending, "ending", 0, 10}, Set{NumberSet::fibonacci, "fibonacci", 1, 90},
                          Set{NumberSet::tens, "tens", 1, 81},     Set{NumberSet::figure, "figure", 1, 9}};

Set set_named(const std::string& name) {
  std::string names;
  for (const Set& set : sets) {
    if (automation::equal_ignoring_case(name, set.name)) return set;
    names.append(names.empty() ? "one of " : ", ").append(set.name);
  }
  throw Failure(ExitCode::usage, "SET " + shown(name) + " is not known; " + names);
}

void check_plain(const Set& set, int16_t number) {
  const bool is_tens = set.set == NumberSet::tens;
  if ((number >= set.least && number <= set.most) || (is_tens && number == number_count)) return;
  throw Failure(ExitCode::usage, std::string(set.name) + " " + std::to_string(number) +
                                     " has no whole list in 1 to 90; with --strict N is " + std::to_string(set.least) +
                                     " to " + std::to_string(set.most) + (is_tens ? ", or 90" : ""));
}

/// 0 for a text that was not given.
int16_t small_value(const std::string& option, const std::string& text, int32_t least) {
  if (text.empty()) return 0;
  return static_cast<int16_t>(whole_value(option, text, least, std::numeric_limits<int16_t>::max()));
}

/// Goes into a statement as it stands.
void check_kind(const std::string& kind) {
  const bool is_word = std::all_of(kind.begin(), kind.end(), [](unsigned char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  });
  if (!is_word) throw Failure(ExitCode::usage, "--kind " + shown(kind) + " cannot be; give letters, as in U or S");
}

bool is_number(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

Consent consent_of(const SystemArguments& given) { return given.yes ? Consent::given : Consent::ask; }

}  // namespace

std::string set_name(NumberSet set) {
  return std::string(std::find_if(sets.begin(), sets.end(), [&](const Set& each) { return each.set == set; })->name);
}

SetQuestion system_generate_options(const SystemArguments& given) {
  const Set set = set_named(given.set);
  SetQuestion options{set.set, 0, given.strict ? Reach::plain : Reach::library};
  const bool takes_number = set.most != 0;
  if (given.set_number.empty() == takes_number)
    throw Failure(ExitCode::usage,
                  takes_number ? std::string(set.name) + " needs a number; as in vestara system " + "generate " +
                                     std::string(set.name) + " 1"
                               : std::string(set.name) + " takes no number; leave " + shown(given.set_number) + " out");
  if (!takes_number) return options;
  options.number = static_cast<int16_t>(whole_value("N", given.set_number, 0, number_count));
  if (given.strict) check_plain(set, options.number);
  return options;
}

RandomQuestion system_random_options(const SystemArguments& given) {
  constexpr int32_t most_numbers = 1000000;
  constexpr int32_t largest = (1 << 30) - 1;  // the library's largest range, less one
  const RandomQuestion options{whole_value("--count", given.count, 1, most_numbers),
                               whole_value("--from", given.from, 0, largest), whole_value("--to", given.to, 0, largest),
                               given.repeat, given.sorted};
  if (options.least > options.most)
    throw Failure(ExitCode::usage, "--from " + std::to_string(options.least) + " is larger than --to " +
                                       std::to_string(options.most) + "; the smaller number comes first");
  const int32_t range = options.most - options.least + 1;
  if (options.repeat || options.count <= range) return options;
  throw Failure(ExitCode::usage, "--count " + std::to_string(options.count) + ": from " +
                                     std::to_string(options.least) + " to " + std::to_string(options.most) +
                                     " there are " + counted(static_cast<size_t>(range), "different number") +
                                     "; give no more than that, or --repeat");
}

SystemIntegralOptions system_integral_options(const SystemArguments& given) {
  SystemIntegralOptions options{numbers_value(given.numbers), whole_value("--size", given.size, 1, number_count),
                                given.count_only, given.output};
  check_size(options.numbers, options.size);
  if (options.count_only && !options.output.empty())
    throw Failure(ExitCode::usage, "--count-only and --output exclude each other; give one of them");
  return options;
}

SystemSaveOptions system_save_options(const SystemArguments& given) {
  SystemSaveOptions options;
  options.file = given.source;
  options.title = given.title;
  options.description = given.description;
  if (!given.bets.empty()) options.bets = small_value("--bets", given.bets, 0);
  options.guarantee = small_value("--guarantee", given.guarantee, 0);
  if (!given.replacing.empty()) options.replaced = whole_value("--id", given.replacing, 1, largest_id);
  options.consent = consent_of(given);
  return options;
}

SystemFilter system_list_options(const SystemArguments& given) {
  check_kind(given.kind);
  return {given.title,
          given.description,
          given.kind,
          small_value("--numbers", given.chosen, 1),
          small_value("--size", given.size, 1),
          small_value("--bets", given.bets, 1),
          small_value("--guarantee", given.guarantee, 1)};
}

SystemShowOptions system_show_options(const SystemArguments& given) {
  SystemShowOptions options{whole_value("ID", given.id, 1, largest_id), std::nullopt, given.output};
  if (!given.chosen.empty()) options.numbers = numbers_value({given.chosen});
  return options;
}

SystemConvertOptions system_convert_options(const SystemArguments& given) {
  SystemConvertOptions options{0, given.source, numbers_value({given.chosen}), given.output};
  if (is_number(given.source)) options.id = whole_value("ID", given.source, 1, largest_id);
  return options;
}

SystemDeleteOptions system_delete_options(const SystemArguments& given) {
  return {whole_value("ID", given.id, 1, largest_id), consent_of(given)};
}

}  // namespace vestara::host
