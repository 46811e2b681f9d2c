#include "vestara/frequency/frequency.h"

#include <utility>

#include "automation/error.h"
#include "automation/int16.h"
#include "automation/text.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/delay_scan.h"
#include "vestara/frequency/frequency_scan.h"
#include "vestara/frequency/frequency_text.h"

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

/// A field of an entry; `built` is the ranking that must be there, not always the same one.
template <class Value, class Field, class Built>
Field ranked(std::string_view label, int16_t index, const Built& built, const Ranking<Value>& ranking,
             Field RankingEntry<Value>::*field) {
  return trapped(label, Field{0}, [&]() -> Field {
    if (index < ranking_first || index > ranking_last) return 0;
    if (!built.is_built()) throw automation::subscript_out_of_range();
    return ranking.at(index).*field;
  });
}

using CountEntry = RankingEntry<int16_t>;
using AverageEntry = RankingEntry<float>;

}  // namespace

void cFrequenza::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  preload_if_open(connector_);
}

void cFrequenza::LoadRitardi(const Variant& dtDa, const Variant& dtA, const std::string& sRuote) {
  trapped("cFrequenza.LoadRitardi()", [&] {
    FillWheelGridInt(delays_, never_drawn);
    const std::string wheels = FormatRuoteToSql(sRuote, WheelChoice::listed);
    Ranking<int16_t> ranking;
    if (walk_rows(connector_, delay_statement({automation::split(wheels, ','), dtDa, dtA}),
                  [&](RecordSet& rows) { ranking = scan_delays(rows, delays_); }))
      delay_ranking_ = std::move(ranking);
  });
}

void cFrequenza::LoadFrequenti(const Variant& dtDa, const Variant& dtA, const std::string& sRuote) {
  trapped("cFrequenza.LoadFrequenti()", [&] {
    FillWheelGridInt(counts_, 0);
    const std::string wheels = FormatRuoteToSql(sRuote, WheelChoice::listed);
    Ranking<int16_t> ranking;
    if (walk_rows(connector_, frequency_statement({automation::split(wheels, ','), dtDa, dtA}),
                  [&](RecordSet& rows) { ranking = scan_counts(rows, counts_); }))
      count_ranking_ = std::move(ranking);
  });
}

void cFrequenza::LoadFrequenzaMedia(const Variant& dtDa, const Variant& dtA, const std::string& sRuote) {
  trapped("cFrequenza.LoadFrequenzaMedia()", [&] {
    FillWheelGridSingle(averages_, 0);
    const std::string wheels = FormatRuoteToSql(sRuote, WheelChoice::listed);
    const DrawSelection selection{automation::split(wheels, ','), dtDa, dtA};
    int16_t draws = 0;
    if (!walk_rows(connector_, draw_dates_statement(selection), [&](RecordSet& dates) {
          if (!dates.at_end()) draws = automation::Int16::checked(dates.record_count());
        }))
      return;
    Ranking<float> ranking;
    if (walk_rows(connector_, frequency_statement(selection),
                  [&](RecordSet& rows) { ranking = scan_averages(rows, draws, averages_); }))
      average_ranking_ = std::move(ranking);
  });
}

int32_t cFrequenza::GetRitNum(int16_t Numero, const Variant& Ruota) {
  return cell_of("cFrequenza.GetRitNum()", delays_, Numero, Ruota);
}
int32_t cFrequenza::GetFrqNum(int16_t Numero, const Variant& Ruota) {
  return cell_of("cFrequenza.GetFrqNum()", counts_, Numero, Ruota);
}
float cFrequenza::GetFrqNumAVG(int16_t Numero, const Variant& Ruota) {
  return cell_of("cFrequenza.GetFrqNumAVG()", averages_, Numero, Ruota);
}

int16_t cFrequenza::GetRitTopTenERuota(int16_t Index) {
  return ranked("cFrequenza.GetRitTopTenERuota()", Index, delay_ranking_, delay_ranking_, &CountEntry::wheel);
}
int16_t cFrequenza::GetRitTopTenNumero(int16_t Index) {
  return ranked("cFrequenza.GetRitTopTenNumero()", Index, delay_ranking_, delay_ranking_, &CountEntry::number);
}
int16_t cFrequenza::GetRitTopTen(int16_t Index) {
  return ranked("cFrequenza.GetRitTopTen()", Index, delay_ranking_, delay_ranking_, &CountEntry::value);
}

// The next two look whether the other ranking was built: kept on purpose.
int16_t cFrequenza::GetFrqTopTenERuotaAVG(int16_t Index) {
  return ranked("cFrequenza.GetFrqTopTenERuotaAVG()", Index, count_ranking_, average_ranking_, &AverageEntry::wheel);
}
int16_t cFrequenza::GetFrqTopTenNumeroAVG(int16_t Index) {
  return ranked("cFrequenza.GetFrqTopTenNumeroAVG()", Index, count_ranking_, average_ranking_, &AverageEntry::number);
}
float cFrequenza::GetFrqTopTenAVG(int16_t Index) {
  return ranked("cFrequenza.GetFrqTopTenAVG()", Index, average_ranking_, average_ranking_, &AverageEntry::value);
}

int16_t cFrequenza::GetFrqTopTenERuota(int16_t Index) {
  return ranked("cFrequenza.GetFrqTopTenERuota()", Index, count_ranking_, count_ranking_, &CountEntry::wheel);
}
int16_t cFrequenza::GetFrqTopTenNumero(int16_t Index) {
  return ranked("cFrequenza.GetFrqTopTenNumero()", Index, count_ranking_, count_ranking_, &CountEntry::number);
}
int16_t cFrequenza::GetFrqTopTen(int16_t Index) {
  return ranked("cFrequenza.GetFrqTopTen()", Index, count_ranking_, count_ranking_, &CountEntry::value);
}

}  // namespace vestara
