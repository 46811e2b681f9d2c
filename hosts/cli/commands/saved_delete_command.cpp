#include "hosts/cli/command.h"
#include "hosts/cli/commands/saved_searches.h"
#include "hosts/cli/options/command_parts.h"
#include "vestara/archive/lotto.h"

namespace vestara::host {
namespace {

struct SavedDeleteOptions {
  std::string id;
  Consent consent = Consent::ask;
};

void add_saved_delete(CLI::App& app, SavedDeleteOptions& options) {
  add_search_id(app, options.id);
  add_yes(app, options.consent, "delete without asking");
}

ExitCode run_saved_delete(const SavedDeleteOptions& options, const Context& context) {
  const int32_t id = search_id(options.id);
  const ArchiveSession session = context.open_archive();
  search_with_id(session, id);
  context.require_consent(options.consent, "delete the saved search " + std::to_string(id));
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  if (!lotto.DeleteRicerchePersonalizzate(id)) session.fail("the search could not be deleted");
  return report_done(context, "deleted", id);
}

}  // namespace

extern const Command saved_delete_command{"delete", Group::questions, "Forget a search", "vestara saved delete 1 --yes",
                                          bound<add_saved_delete, run_saved_delete>};

}  // namespace vestara::host
