#include "hosts/cli/commands/system_catalogue.h"

#include <limits>

#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/output/system_output.h"
#include "hosts/cli/study/system_numbers.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/saved_systems.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

std::string in_words(const ArchiveSession& session, int32_t id) {
  system_with_id(session, id);
  return "the saved system " + std::to_string(id) + " with its " +
         counted(stored_combinations(session, id).count, "combination");
}

int16_t bets_of(const SystemSaveOptions& options, const SystemFile& file) {
  if (options.bets) return *options.bets;
  return file.count <= static_cast<size_t>(std::numeric_limits<int16_t>::max()) ? static_cast<int16_t>(file.count) : 0;
}

/// Where an error stands that is not the database's own.
std::string log_hint(const ArchiveSession& session) {
  return session.connector()->LastError().empty() ? ", see " + log_path() : std::string();
}

/// Returns the new id; the old system goes when the new one stays, or neither.
int32_t store(const ArchiveSession& session, const SystemSaveOptions& options, const SystemFile& file,
              const std::string& numbers) {
  cSistemi catalogue;
  catalogue.ActiveConnection(session.connector());
  Transaction transaction(session);
  if (options.replaced != 0) system_with_id(session, options.replaced);
  int32_t id = options.replaced;
  if (!catalogue.SalvaSistema(id, std::string(file.combinations), options.title, options.description, numbers,
                              static_cast<int16_t>(length_of(numbers)), static_cast<int16_t>(file.size),
                              bets_of(options, file), options.guarantee))
    session.fail("the system could not be saved, nothing was changed" + log_hint(session));
  transaction.commit();
  return id;
}

}  // namespace

ExitCode run_system_save(const SystemSaveOptions& options, const Context& context) {
  const SystemFile file = read_system_file(options.file, context.err);
  const std::string numbers = cSistemi().GetCombiNumbers(file.combinations);
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const bool replaces = options.replaced != 0;
  if (replaces) require_consent(options.consent, "replace " + in_words(session, options.replaced), context.err);
  const int32_t id = store(session, options, file, numbers);
  Report report;
  report.facts = {{"result", replaces ? "replaced" : "saved"}, {"id", int64_t{id}}};
  if (replaces) report.facts.push_back({"former_id", int64_t{options.replaced}});
  report.facts.push_back({"numbers", static_cast<int64_t>(length_of(numbers))});
  report.facts.push_back({"count", static_cast<int64_t>(file.count)});
  write_report(context.out, report, context.style());
  return ExitCode::ok;
}

ExitCode run_system_list(const SystemFilter& options, const Context& context) {
  const auto systems = stored_systems(ArchiveSession::for_reading(context.options.database), options);
  Report report;
  report.listing = "systems";
  report.row_kind = "system";
  report.columns = {"id", "title", "description", "kind", "number_count", "size", "bets", "guarantee"};
  for (const StoredSystem& system : systems)
    report.rows.push_back({system.id, system.title, system.description, system.kind, system.number_count, system.size,
                           system.bets, system.guarantee});
  write_report(context.out, report, context.style());
  if (!systems.empty()) return ExitCode::ok;
  context.err << "vestara: no such system is saved; vestara system save FILE --title TEXT saves one\n";
  return ExitCode::nothing_found;
}

ExitCode run_system_delete(const SystemDeleteOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  require_consent(options.consent, "delete " + in_words(session, options.id), context.err);
  cSistemi catalogue;
  catalogue.ActiveConnection(session.connector());
  Transaction transaction(session);
  const size_t count = stored_combinations(session, options.id).count;
  if (!catalogue.DelSistema(options.id)) session.fail("the system could not be deleted, nothing was changed");
  transaction.commit();
  Report report;
  report.facts = {{"result", "deleted"}, {"id", int64_t{options.id}}, {"count", static_cast<int64_t>(count)}};
  write_report(context.out, report, context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
