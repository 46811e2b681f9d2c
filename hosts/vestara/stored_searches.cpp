#include "hosts/vestara/stored_searches.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "automation/coercion.h"
#include "vestara/archive/lotto.h"

namespace vestara::host {
namespace {

using automation::Variant;

StoredSearch read_row(RecordSet& rows) {
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

bool is_absent(const Variant& value) { return value.is_null() || value.is_empty(); }

/// "2005-02-09", with the time of day when there is one; any other value as text, "" for none.
std::string text_of(const Variant& value) {
  if (is_absent(value)) return {};
  const auto* date = value.get_if<automation::Date>();
  if (!date) return automation::to_text(value);
  constexpr size_t day_length = 10;
  return automation::iso_day(*date) + automation::date_to_text(*date).substr(day_length);
}

/// A date without its time of day, which bounds do not have.
std::string bound_of(const Variant& value) {
  const auto date = automation::date_in(value);
  return date ? automation::iso_day(*date) : text_of(value);
}

Cell cell_of(const Variant& value) {
  if (is_absent(value)) return {};
  if (const auto* number = value.get_if<int32_t>()) return int64_t{*number};
  if (const auto* number = value.get_if<int16_t>()) return int64_t{*number};
  return text_of(value);
}

}  // namespace

std::vector<StoredSearch> stored_searches(const ArchiveSession& session, int32_t id) {
  cLotto lotto;
  lotto.ActiveConnection(session.connector());
  auto rows = lotto.GetRicerchePersonalizzate(id);
  if (!rows) session.fail("the saved searches cannot be read");
  std::vector<StoredSearch> searches;
  for (; !rows->at_end(); rows->move_next()) searches.push_back(read_row(*rows));
  session.connector()->CloseRecordset(rows);
  std::stable_sort(searches.begin(), searches.end(),
                   [](const StoredSearch& left, const StoredSearch& right) { return age(left) > age(right); });
  return searches;
}

std::vector<std::string> stored_names() { return {"id", "name", "numbers", "hits", "wheels", "from", "to", "saved"}; }

std::vector<Cell> stored_values(const StoredSearch& search) {
  return {cell_of(search.id),     cell_of(search.name), cell_of(search.numbers), cell_of(search.hits),
          cell_of(search.wheels), cell_of(search.from), cell_of(search.to),      cell_of(search.saved)};
}

SearchWords words_of(const StoredSearch& search) {
  const std::string wheels = text_of(search.wheels);
  return {{text_of(search.numbers)},
          text_of(search.hits),
          wheels.empty() ? "all" : wheels,
          bound_of(search.from),
          bound_of(search.to)};
}

}  // namespace vestara::host
