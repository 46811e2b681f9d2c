#include <algorithm>

#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

/// An empty text does not filter.
struct SystemListOptions {
  std::string title;
  std::string description;
  std::string kind;
  std::string numbers;
  std::string size;
  std::string bets;
  std::string guarantee;
};

void add_system_list(CLI::App& app, SystemListOptions& options) {
  value_option(app, "--title", options.title, "TEXT", "found anywhere in the title, in capitals or not");
  value_option(app, "--description", options.description, "TEXT", "found anywhere in the description");
  value_option(app, "--kind", options.kind, "KIND", "U: saved by a user, S: another kind");
  value_option(app, "--numbers", options.numbers, "N", "how many different numbers it plays");
  value_option(app, "--size", options.size, "K", "numbers in a combination");
  value_option(app, "--bets", options.bets, "N", "as given when it was saved");
  value_option(app, "--guarantee", options.guarantee, "N", "the same");
}

/// Goes into a statement as it stands.
void check_kind(const std::string& kind) {
  const bool is_word = std::all_of(kind.begin(), kind.end(), [](unsigned char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  });
  if (!is_word)
    throw Failure(FailureKind::argument, "--kind " + shown(kind) + " cannot be; give letters, as in U or S");
}

SystemFilter filter_of(const SystemListOptions& options) {
  check_kind(options.kind);
  return {options.title,
          options.description,
          options.kind,
          small_value("--numbers", options.numbers, 1),
          small_value("--size", options.size, 1),
          small_value("--bets", options.bets, 1),
          small_value("--guarantee", options.guarantee, 1)};
}

ExitCode run_system_list(const SystemListOptions& options, const Context& context) {
  const SystemFilter filter = filter_of(options);
  const auto systems = stored_systems(context.open_archive(), filter);
  Report report;
  report.listing = "systems";
  report.row_kind = "system";
  report.columns = {"id", "title", "description", "kind", "number_count", "size", "bets", "guarantee"};
  for (const StoredSystem& system : systems)
    report.rows.push_back({system.id, system.title, system.description, system.kind, system.number_count, system.size,
                           system.bets, system.guarantee});
  context.show(report);
  if (!systems.empty()) return ExitCode::ok;
  context.remark("no such system is saved; vestara system save FILE --title TEXT saves one");
  return ExitCode::nothing_found;
}

}  // namespace

extern const Command system_list_command{"list", Group::bets, "List the systems that are kept, by ID",
                                         "vestara system list --title four --format json",
                                         bound<add_system_list, run_system_list>};

}  // namespace vestara::host
