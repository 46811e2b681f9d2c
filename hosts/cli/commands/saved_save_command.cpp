#include "automation/date.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/saved_searches.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/search_request.h"
#include "vestara/archive/lotto.h"
#include "vestara/foundation/error_log.h"

namespace vestara::host {
namespace {

struct SavedSaveOptions {
  SearchWords search;
  std::string name;
  std::string id;                  ///< empty for a new one
  Consent consent = Consent::ask;  ///< to replace another search
};

void add_saved_save(CLI::App& app, SavedSaveOptions& options) {
  add_numbers(app, options.search.numbers);
  value_option(app, "--name", options.name, "TEXT", "what lists show; any text")->required();
  add_hits_and_wheels(app, options.search.hits, options.search.wheels);
  add_range(app, options.search.from, options.search.to);
  value_option(app, "--id", options.id, "ID", "in place of this search; asks first");
  add_yes(app, options.consent, "replace without asking");
}

/// Returns the id under which it is now found.
int32_t store(const ArchiveSession& session, const SavedSaveOptions& options, const SearchRequest& search, int32_t id) {
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  // Nobody else takes an id between the search and the question which one it got.
  Transaction transaction(session);
  if (id != 0) search_with_id(session, id);
  if (!lotto.SaveRicerchePersonalizzate(id, std::string(options.name), std::string(search.numbers.text), search.hits,
                                        std::string(search.draws.wheels.codes), automation::now(),
                                        date_bound(search.draws.from), date_bound(search.draws.to)))
    session.fail("the search could not be saved, see " + log_path());
  const int32_t stored = id != 0 ? id : session.connector()->GetMaxId("tRicerche", "idRicerca");
  transaction.commit();
  return stored;
}

ExitCode run_saved_save(const SavedSaveOptions& options, const Context& context) {
  const SearchRequest search = search_request(options.search);
  const int32_t id = options.id.empty() ? 0 : whole_value("--id", options.id, 1, largest_id);
  const ArchiveSession session = context.open_archive();
  if (id != 0) {
    search_with_id(session, id);
    context.require_consent(options.consent, "replace the saved search " + std::to_string(id));
  }
  return report_done(context, id == 0 ? "saved" : "replaced", store(session, options, search, id));
}

}  // namespace

extern const Command saved_save_command{"save", Group::questions, "Keep a search, and say under which ID",
                                        "vestara saved save 5,12,33 --name \"first try\" --hits ambo --wheels BA,NA",
                                        bound<add_saved_save, run_saved_save>};

}  // namespace vestara::host
