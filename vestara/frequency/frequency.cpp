#include "vestara/frequency/frequency.h"

#include <utility>

#include "automation/error.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/delay_scan.h"

namespace vestara {

using automation::Ref;
using automation::Variant;

namespace {

template <class Cell>
Cell cell_of(std::string_view label, const WheelGrid<Cell>& grid, int16_t number, const Variant& wheel) {
  return trapped(label, Cell{0}, [&] {
    if (!grid.is_filled()) throw automation::subscript_out_of_range();
    return grid.at(wheel_argument(wheel), number);
  });
}

/// A field of an entry of a ranking that was built; 0 for an index that no ranking has.
template <class Value, class Field>
Field field_at(const Ranking<Value>& ranking, int16_t index, Field RankingEntry<Value>::*field) {
  return index < ranking_first || index > ranking_last ? Field{0} : ranking.at(index).*field;
}

template <class Value, class Field>
Field ranked(std::string_view label, int16_t index, const Ranking<Value>& ranking, Field RankingEntry<Value>::*field) {
  return trapped(label, Field{0}, [&] { return field_at(ranking, index, field); });
}

using CountEntry = RankingEntry<int16_t>;
using AverageEntry = RankingEntry<float>;

// The contract's period holds for the first of several wheels only: kept on purpose.
constexpr auto contract_binding = PeriodBinding::first_wheel;

/// What the arguments of a load select.
DrawSelection selected(const Variant& from, const Variant& to, const std::string& wheels) {
  WheelFilter filter = formatted_wheels(wheels);
  return {std::move(filter), DateBound::given(from), DateBound::given(to)};
}

}  // namespace

void cFrequenza::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  preload_if_open(connector_);
}

// A load empties its grid before anything can fail. One that failed leaves what it wrote there, and the ranking of the
// load before: hosts see both.

void cFrequenza::LoadRitardi(const Variant& dtDa, const Variant& dtA, const std::string& sRuote) {
  trapped("cFrequenza.LoadRitardi()", [&] {
    FillWheelGridInt(delays_.grid, never_drawn);
    const DrawSelection selection = selected(dtDa, dtA, sRuote);
    load_delays(required(connector_), selection, contract_binding, delays_);
  });
}

void cFrequenza::LoadFrequenti(const Variant& dtDa, const Variant& dtA, const std::string& sRuote) {
  trapped("cFrequenza.LoadFrequenti()", [&] {
    FillWheelGridInt(counts_.grid, 0);
    const DrawSelection selection = selected(dtDa, dtA, sRuote);
    load_counts(required(connector_), selection, contract_binding, counts_);
  });
}

void cFrequenza::LoadFrequenzaMedia(const Variant& dtDa, const Variant& dtA, const std::string& sRuote) {
  trapped("cFrequenza.LoadFrequenzaMedia()", [&] {
    FillWheelGridSingle(averages_.grid, 0);
    const DrawSelection selection = selected(dtDa, dtA, sRuote);
    load_averages(required(connector_), selection, contract_binding, averages_);
  });
}

int32_t cFrequenza::GetRitNum(int16_t Numero, const Variant& Ruota) const {
  return cell_of("cFrequenza.GetRitNum()", delays_.grid, Numero, Ruota);
}
int32_t cFrequenza::GetFrqNum(int16_t Numero, const Variant& Ruota) const {
  return cell_of("cFrequenza.GetFrqNum()", counts_.grid, Numero, Ruota);
}
float cFrequenza::GetFrqNumAVG(int16_t Numero, const Variant& Ruota) const {
  return cell_of("cFrequenza.GetFrqNumAVG()", averages_.grid, Numero, Ruota);
}

int16_t cFrequenza::GetRitTopTenERuota(int16_t Index) const {
  return ranked("cFrequenza.GetRitTopTenERuota()", Index, delays_.ranking, &CountEntry::wheel);
}
int16_t cFrequenza::GetRitTopTenNumero(int16_t Index) const {
  return ranked("cFrequenza.GetRitTopTenNumero()", Index, delays_.ranking, &CountEntry::number);
}
int16_t cFrequenza::GetRitTopTen(int16_t Index) const {
  return ranked("cFrequenza.GetRitTopTen()", Index, delays_.ranking, &CountEntry::value);
}

// Wheel and number of an average can be read once the counts were loaded as well: the contract's two getters look
// whether the other ranking was built. Kept on purpose.
int16_t cFrequenza::GetFrqTopTenERuotaAVG(int16_t Index) const {
  return trapped("cFrequenza.GetFrqTopTenERuotaAVG()", int16_t{0}, [&] {
    field_at(counts_.ranking, Index, &CountEntry::wheel);
    return field_at(averages_.ranking, Index, &AverageEntry::wheel);
  });
}
int16_t cFrequenza::GetFrqTopTenNumeroAVG(int16_t Index) const {
  return trapped("cFrequenza.GetFrqTopTenNumeroAVG()", int16_t{0}, [&] {
    field_at(counts_.ranking, Index, &CountEntry::number);
    return field_at(averages_.ranking, Index, &AverageEntry::number);
  });
}
float cFrequenza::GetFrqTopTenAVG(int16_t Index) const {
  return ranked("cFrequenza.GetFrqTopTenAVG()", Index, averages_.ranking, &AverageEntry::value);
}

int16_t cFrequenza::GetFrqTopTenERuota(int16_t Index) const {
  return ranked("cFrequenza.GetFrqTopTenERuota()", Index, counts_.ranking, &CountEntry::wheel);
}
int16_t cFrequenza::GetFrqTopTenNumero(int16_t Index) const {
  return ranked("cFrequenza.GetFrqTopTenNumero()", Index, counts_.ranking, &CountEntry::number);
}
int16_t cFrequenza::GetFrqTopTen(int16_t Index) const {
  return ranked("cFrequenza.GetFrqTopTen()", Index, counts_.ranking, &CountEntry::value);
}

}  // namespace vestara
