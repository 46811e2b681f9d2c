#include "hosts/cli/archive/stored_searches.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "automation/coercion.h"
#include "hosts/cli/output/stored_cell.h"
#include "vestara/archive/lotto.h"

namespace vestara::host {
namespace {

using automation::Variant;

StoredSearch search_in_row(RecordSet& rows) {
  const auto value = [&](std::string_view name) { return rows.value(rows.column(name)); };
  return {value("idRicerca"), value("descRicerca"), value("numeri"), value("combinazione"),
          value("ruote"),     value("dtDa"),        value("dtA"),    value("dtSave")};
}

/// When and as which it was saved; what is no date or number comes last.
std::pair<double, double> age(const StoredSearch& search) {
  const auto saved = automation::date_in(search.saved);
  const double id = automation::is_numeric(search.id) ? automation::to_double(search.id) : 0;
  return {saved ? saved->serial() : std::numeric_limits<double>::lowest(), id};
}

}  // namespace

std::vector<StoredSearch> stored_searches(const ArchiveSession& session, int32_t id) {
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  auto rows = lotto.GetRicerchePersonalizzate(id);
  if (!rows) session.fail("the saved searches cannot be read");
  std::vector<StoredSearch> searches;
  for (; !rows->at_end(); rows->move_next()) searches.push_back(search_in_row(*rows));
  session.connector()->CloseRecordset(rows);
  std::stable_sort(searches.begin(), searches.end(),
                   [](const StoredSearch& left, const StoredSearch& right) { return age(left) > age(right); });
  return searches;
}

std::vector<std::string> stored_names() { return {"id", "name", "numbers", "hits", "wheels", "from", "to", "saved"}; }

std::vector<Cell> stored_values(const StoredSearch& search) {
  return {stored_cell(search.id),     stored_cell(search.name), stored_cell(search.numbers), stored_cell(search.hits),
          stored_cell(search.wheels), stored_cell(search.from), stored_cell(search.to),      stored_cell(search.saved)};
}

}  // namespace vestara::host
