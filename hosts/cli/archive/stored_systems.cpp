#include "hosts/cli/archive/stored_systems.h"

#include <algorithm>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/output/output_forms.h"
#include "hosts/cli/output/stored_cell.h"
#include "vestara/foundation/error_log.h"
#include "vestara/keeping/saved_systems.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

StoredSystem system_in_row(RecordSet& rows) {
  const auto cell = [&](std::string_view name) { return stored_cell(rows.value(rows.column(name))); };
  return {cell("idSis"),     cell("titolo"),   cell("descrizione"), cell("sisTipo"), cell("numeri"),
          cell("qtaNumeri"), cell("kColonne"), cell("nGiocate"),    cell("garanzia")};
}

/// 0 for what is no number.
int64_t id_of(const StoredSystem& system) {
  const auto* id = std::get_if<int64_t>(&system.id);
  return id ? *id : 0;
}

std::vector<StoredSystem> read_rows(const ArchiveSession& session, automation::Ref<RecordSet> rows) {
  if (!rows) session.fail("the saved systems cannot be read, see " + log_path());
  std::vector<StoredSystem> systems;
  for (; !rows->at_end(); rows->move_next()) systems.push_back(system_in_row(*rows));
  session.connector()->CloseRecordset(rows);
  std::stable_sort(systems.begin(), systems.end(),
                   [](const StoredSystem& left, const StoredSystem& right) { return id_of(left) < id_of(right); });
  return systems;
}

bool contains(const Cell& cell, const std::string& text) {
  return automation::lower_case(cell_text(cell)).find(automation::lower_case(text)) != std::string::npos;
}

}  // namespace

std::vector<StoredSystem> stored_systems(const ArchiveSession& session, const SystemFilter& filter) {
  cSistemi catalogue;
  catalogue.ActiveConnection(session.connector());
  auto systems =
      read_rows(session, catalogue.GetSistemiLista(0, filter.kind, filter.title, filter.description, filter.numbers,
                                                   filter.bets, filter.size, filter.guarantee));
  // The database takes some characters of the texts for wildcards and so finds too much.
  std::erase_if(systems, [&](const StoredSystem& system) {
    return !contains(system.title, filter.title) || !contains(system.description, filter.description);
  });
  return systems;
}

StoredSystem system_with_id(const ArchiveSession& session, int32_t id) {
  cSistemi catalogue;
  catalogue.ActiveConnection(session.connector());
  const auto systems = read_rows(session, catalogue.GetSistemiLista(id));
  if (!systems.empty()) return systems.front();
  throw Failure(FailureKind::nothing_found,
                "no system is saved as " + std::to_string(id) + "; vestara system list shows those that are");
}

StoredCombinations stored_combinations(const ArchiveSession& session, int32_t id, const std::string& numbers) {
  cSistemi catalogue;
  catalogue.ActiveConnection(session.connector());
  StoredCombinations combinations;
  auto rows = catalogue.GetSistemaCombi(id, numbers, combinations.text);
  if (!rows) session.fail("the combinations of system " + std::to_string(id) + " cannot be read, see " + log_path());
  combinations.count = static_cast<size_t>(rows->record_count());
  session.connector()->CloseRecordset(rows);
  return combinations;
}

}  // namespace vestara::host
