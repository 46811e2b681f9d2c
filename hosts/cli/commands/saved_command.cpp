#include <variant>

#include "automation/date.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/commands/stored_question.h"
#include "vestara/archive/lotto.h"
#include "vestara/foundation/error_log.h"
#include "vestara/keeping/saved_search_text.h"
#include "vestara/keeping/saved_searches.h"

namespace vestara::host {
namespace {

StoredSearch search_with_id(const ArchiveSession& session, int32_t id) {
  const auto searches = stored_searches(session, id);
  if (!searches.empty()) return searches.front();
  throw Failure(ExitCode::nothing_found,
                "no search is saved as " + std::to_string(id) + "; vestara saved list shows those that are");
}

ExitCode report_done(const Context& context, const std::string& result, int32_t id) {
  Report report;
  report.facts = {{"result", result}, {"id", int64_t{id}}};
  write_report(context.out, report, context.style());
  return ExitCode::ok;
}

/// Returns the id under which it is now found.
int32_t store(const ArchiveSession& session, const SavedSaveOptions& options) {
  const SearchOptions& search = options.search;
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  // Nobody else takes an id between the search and the question which one it got.
  Transaction transaction(session);
  if (options.id != 0) search_with_id(session, options.id);
  if (!lotto.SaveRicerchePersonalizzate(options.id, std::string(options.name), std::string(search.numbers.text),
                                        search.hits, std::string(search.draws.wheels.codes), automation::now(),
                                        date_bound(search.draws.from), date_bound(search.draws.to)))
    session.fail("the search could not be saved, see " + log_path());
  const int32_t id = options.id != 0 ? options.id : session.connector()->GetMaxId("tRicerche", "idRicerca");
  transaction.commit();
  return id;
}

/// Failure (database) when it is none that `vestara search` could make.
SearchOptions search_of(const StoredSearch& stored, int32_t id) {
  try {
    return question_of(stored);
  } catch (const vestara::Failure& failure) {
    throw Failure(ExitCode::database, "saved search " + std::to_string(id) + " cannot be run: " + failure.what());
  }
}

struct RunSaved {
  const Context& context;

  ExitCode operator()(const SavedListOptions&) const {
    const auto searches = stored_searches(ArchiveSession::for_reading(context.options.database), every_search);
    Report report;
    report.listing = "searches";
    report.row_kind = "search";
    report.columns = stored_names();
    for (const StoredSearch& search : searches) report.rows.push_back(stored_values(search));
    write_report(context.out, report, context.style());
    if (!searches.empty()) return ExitCode::ok;
    context.err << "vestara: no search is saved; vestara saved save NUMBERS --name TEXT saves one\n";
    return ExitCode::nothing_found;
  }

  ExitCode operator()(const SavedShowOptions& options) const {
    const auto search = search_with_id(ArchiveSession::for_reading(context.options.database), options.id);
    const auto names = stored_names();
    const auto values = stored_values(search);
    Report report;
    for (size_t i = 0; i < names.size(); ++i) report.facts.push_back({names[i], values[i]});
    write_report(context.out, report, context.style());
    return ExitCode::ok;
  }

  ExitCode operator()(const SavedSaveOptions& options) const {
    const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
    if (options.id != 0) {
      search_with_id(session, options.id);
      require_consent(options.consent, "replace the saved search " + std::to_string(options.id), context.err);
    }
    const int32_t id = store(session, options);
    return report_done(context, options.id == 0 ? "saved" : "replaced", id);
  }

  ExitCode operator()(const SavedRunOptions& options) const {
    const auto stored = search_with_id(ArchiveSession::for_reading(context.options.database), options.id);
    return run_search(search_of(stored, options.id), context);
  }

  ExitCode operator()(const SavedDeleteOptions& options) const {
    const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
    search_with_id(session, options.id);
    require_consent(options.consent, "delete the saved search " + std::to_string(options.id), context.err);
    cLotto lotto;
    lotto.ActiveConnection(session.connector());
    if (!lotto.DeleteRicerchePersonalizzate(options.id)) session.fail("the search could not be deleted");
    return report_done(context, "deleted", options.id);
  }
};

}  // namespace

ExitCode run_saved(const SavedOptions& options, const Context& context) {
  return std::visit(RunSaved{context}, options);
}

}  // namespace vestara::host
