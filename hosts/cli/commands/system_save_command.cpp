#include <limits>
#include <optional>

#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/system_output.h"
#include "vestara/foundation/error_log.h"
#include "vestara/systems/start_numbers.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

struct SystemSaveOptions {
  std::string file;  ///< "-" is standard input
  std::string title;
  std::string description;
  std::string bets;
  std::string guarantee;
  std::string id;  ///< of the system in whose place it comes; empty for none
  Consent consent = Consent::ask;
};

void add_system_save(CLI::App& app, SystemSaveOptions& options) {
  argument(app, "FILE", options.file, "a combination a line; - is stdin")->required();
  value_option(app, "--title", options.title, "TEXT", "what lists show; any text")->required();
  value_option(app, "--description", options.description, "TEXT", "any text");
  value_option(app, "--bets", options.bets, "N", "bets to play; without it, one for each of up to 32767 combinations");
  value_option(app, "--guarantee", options.guarantee, "N", "what the system guarantees, 0 (default) for nothing");
  value_option(app, "--id", options.id, "ID", "in place of this system");
  add_yes(app, options.consent, "replace without asking");
}

/// What is saved with the combinations of a file.
struct SystemToSave {
  const SystemSaveOptions& given;
  std::optional<int16_t> bets;  ///< without it, one for each combination
  int16_t guarantee = 0;
  int32_t replaced = 0;  ///< the system in whose place it comes; 0 for none
};

SystemToSave system_to_save(const SystemSaveOptions& options) {
  SystemToSave system{options, {}};
  if (!options.bets.empty()) system.bets = small_value("--bets", options.bets, 0);
  system.guarantee = small_value("--guarantee", options.guarantee, 0);
  if (!options.id.empty()) system.replaced = whole_value("--id", options.id, 1, largest_id);
  return system;
}

int16_t bets_of(const SystemToSave& system, const SystemFile& file) {
  if (system.bets) return *system.bets;
  return file.count <= static_cast<size_t>(std::numeric_limits<int16_t>::max()) ? static_cast<int16_t>(file.count) : 0;
}

/// Where an error stands that is not the database's own.
std::string log_hint(const ArchiveSession& session) {
  return session.connector()->LastError().empty() ? ", see " + log_path() : std::string();
}

/// Returns the new id; the old system goes when the new one stays, or neither.
int32_t store(const ArchiveSession& session, const SystemToSave& system, const SystemFile& file,
              const std::string& numbers) {
  cSistemi catalogue;
  catalogue.ActiveConnection(session.connector());
  Transaction transaction(session);
  if (system.replaced != 0) system_with_id(session, system.replaced);
  int32_t id = system.replaced;
  if (!catalogue.SalvaSistema(id, std::string(file.combinations), system.given.title, system.given.description, numbers,
                              static_cast<int16_t>(length_of(numbers)), static_cast<int16_t>(file.size),
                              bets_of(system, file), system.guarantee))
    session.fail("the system could not be saved, nothing was changed" + log_hint(session));
  transaction.commit();
  return id;
}

ExitCode run_system_save(const SystemSaveOptions& options, const Context& context) {
  const SystemToSave system = system_to_save(options);
  const SystemFile file = read_system_file(options.file, context.err);
  const std::string numbers = cSistemi().GetCombiNumbers(file.combinations);
  const ArchiveSession session = context.open_archive();
  const bool replaces = system.replaced != 0;
  if (replaces) context.require_consent(options.consent, "replace " + saved_system_in_words(session, system.replaced));
  const int32_t id = store(session, system, file, numbers);
  Report report;
  report.facts = {{"result", replaces ? "replaced" : "saved"}, {"id", int64_t{id}}};
  if (replaces) report.facts.push_back({"former_id", int64_t{system.replaced}});
  report.facts.push_back({"numbers", static_cast<int64_t>(length_of(numbers))});
  report.facts.push_back({"count", static_cast<int64_t>(file.count)});
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command system_save_command{
    "save", Group::bets, "Keep a system, and say under which ID",
    "vestara system save system.txt --title \"four numbers\" --guarantee 2\n\n"
    "A line of the file is a combination: different numbers of 1 to 90 between commas, blanks or tabs.\n"
    "Empty lines and what follows a # do not count. A system that replaces another is a new one with the\n"
    "next free ID; the old one goes only when the new one is there whole.",
    bound<add_system_save, run_system_save>};

}  // namespace vestara::host
