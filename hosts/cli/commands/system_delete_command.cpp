#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/system_parts.h"
#include "hosts/cli/options/command_parts.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

struct SystemDeleteOptions {
  std::string id;
  Consent consent = Consent::ask;
};

void add_system_delete(CLI::App& app, SystemDeleteOptions& options) {
  add_system_id(app, options.id);
  add_yes(app, options.consent, "delete without asking");
}

ExitCode run_system_delete(const SystemDeleteOptions& options, const Context& context) {
  const int32_t id = system_id(options.id);
  const ArchiveSession session = context.open_archive();
  context.require_consent(options.consent, "delete " + saved_system_in_words(session, id));
  cSistemi catalogue;
  catalogue.ActiveConnection(session.connector());
  Transaction transaction(session);
  const size_t count = stored_combinations(session, id).count;
  if (!catalogue.DelSistema(id)) session.fail("the system could not be deleted, nothing was changed");
  transaction.commit();
  Report report;
  report.facts = {{"result", "deleted"}, {"id", int64_t{id}}, {"count", static_cast<int64_t>(count)}};
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command system_delete_command{"delete", Group::bets, "Forget a system", "vestara system delete 1 --yes",
                                           bound<add_system_delete, run_system_delete>};

}  // namespace vestara::host
