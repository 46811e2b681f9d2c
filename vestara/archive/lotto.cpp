#include "vestara/archive/lotto.h"

#include <array>
#include <utility>
#include <vector>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/int16.h"
#include "automation/member.h"
#include "automation/text.h"
#include "vestara/archive/archive_text.h"
#include "vestara/archive/hit_counters.h"
#include "vestara/archive/hit_search.h"
#include "vestara/archive/lotto_members.h"
#include "vestara/archive/search_text.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"
#include "vestara/keeping/history_import.h"

namespace vestara {

using automation::Ref;
using automation::Variant;

namespace {

/// A bound as it is kept: never an object, which might hold this search.
Variant kept_bound(const Variant& bound) {
  return bound.is_missing() ? Variant(automation::Null{}) : automation::to_plain(bound);
}

int16_t numbers_in(std::string_view list) {
  return automation::Int16::checked(static_cast<int64_t>(automation::split(list, ',').size()));
}

/// Raises LoadingEnd when the import leaves, by whatever way: before a failure is logged.
class EndOfLoading {
 public:
  explicit EndOfLoading(automation::EventSource& events) : events_(&events) {}
  EndOfLoading(const EndOfLoading&) = delete;
  EndOfLoading& operator=(const EndOfLoading&) = delete;
  ~EndOfLoading() {
    if (events_) events_->raise(loading_end);
  }
  void keep_silent() { events_ = nullptr; }

 private:
  automation::EventSource* events_;
};

}  // namespace

cLotto::cLotto() = default;

cLotto::~cLotto() {
  statistics_ = nullptr;
  connector_ = nullptr;
}

DbConnector& cLotto::connector() const { return required(connector_); }

Ref<DbConnector> cLotto::ActiveConnection() const { throw automation::object_not_set(); }

void cLotto::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  preload_if_open(connector_);
}

void cLotto::Statistiche(Ref<cStatistiche> statistics) { statistics_ = std::move(statistics); }

int32_t cLotto::ContaEstrazioniStorico(const Variant& dtDa, const Variant& dtA, int16_t Ruota) {
  return trapped("cLotto.ContaEstrazioniStorico()", -1, [&] {
    int32_t draws = 0;
    const DrawCountQuestion question{bound_of_count(dtDa), bound_of_count(dtA), Ruota};
    count_draws(connector(), question, draws);
    return draws;
  });
}

Variant cLotto::GetMaxDateStorico() {
  return trapped("cLotto.GetMaxDateStorico()", Variant(),
                 [&] { return bound_of_archive(newest_date_statement(), "dmax"); });
}

Variant cLotto::GetMinDateStorico() {
  return trapped("cLotto.GetMinDateStorico()", Variant(),
                 [&] { return bound_of_archive(oldest_date_statement(), "dmin"); });
}

Variant cLotto::bound_of_archive(const std::string& statement, std::string_view field) {
  Variant bound;
  walk_rows(connector(), statement, [&](RecordSet& rows) {
    if (!rows.at_end()) bound = DT_READ(rows.value(rows.column(field)), automation::Null{}, "", Seconds::hidden);
  });
  return bound;
}

SearchQuestion cLotto::Asked::question(const WheelFilter& filter) const {
  return {numbers, combination, {filter, DateBound::given(from), DateBound::given(to)}, draws(), order};
}

Ref<RecordSet> cLotto::LoadLottoEstr(const std::string& sNum, int16_t combinazioneTipo, const std::string& sRuote,
                                     const Variant& dtDa, const Variant& dtA,
                                     automation::InOut<bool> bTutteLeEstrazioni, bool bTutteLeRuote, bool bSortASC) {
  const Asked asked{sNum, combinazioneTipo,    sRuote,        dtDa,
                    dtA,  *bTutteLeEstrazioni, bTutteLeRuote, date_order(bSortASC)};
  if (sNum.empty()) *bTutteLeEstrazioni = true;
  const WheelFilter wheels = trapped("cLotto.formatRuoteToSql()", WheelFilter(),
                                     [&] { return bTutteLeRuote ? WheelFilter() : WheelFilter::listed(sRuote); });
  count_rows(asked, wheels);
  Ref<RecordSet> dates = hit_dates(asked, wheels);
  if (statistics_active_) fill_statistics();
  return dates;
}

void cLotto::count_rows(const Asked& asked, const WheelFilter& wheels) {
  trapped("cLotto.getEstrazioni()", [&] {
    last_ = {};
    last_.all_draws = asked.all_draws;
    last_.all_wheels = asked.all_wheels;
    last_.numbers = asked.numbers;
    last_.combination = asked.combination;
    last_.from = kept_bound(asked.from);
    last_.to = kept_bound(asked.to);
    if (asked.draws() == DrawChoice::hits) {
      last_.numbers_played = numbers_in(asked.numbers);
      last_.wheels = wheels.plain();
    }
    walk_rows(connector(), counting_statement(asked.question(wheels)), [&](RecordSet& rows) {
      count_hits(rows, asked.draws(), last_.found);
      if (last_.all_wheels) last_.wheels = asked.wheels;
    });
  });
}

Ref<RecordSet> cLotto::hit_dates(const Asked& asked, const WheelFilter& wheels) {
  return trapped("cLotto.getEstrazioniDate()", Ref<RecordSet>(), [&] {
    Ref<RecordSet> rows;
    if (!connector().OpenRecordset(rows, dates_statement(asked.question(wheels)))) return Ref<RecordSet>();
    last_.hit_dates = rows ? rows->record_count() : 0;
    return rows;
  });
}

void cLotto::fill_statistics() {
  statistics_ = nullptr;
  if (last_.all_draws) return;
  LastSearch search = last_;
  const Ref<cStatistiche> statistics = statistics_ = automation::make<cStatistiche>();
  const HitCounters& found = search.found.combinations;
  statistics->ActiveConnection(connector_);
  statistics->EstrNumeriString(search.numbers);
  statistics->EstrCombinazione(search.combination);
  statistics->DataA(search.to);
  statistics->DataDa(search.from);
  statistics->EstrNumeriGiocatiQta(search.numbers_played);
  statistics->EstrContaSortiteTrovate(search.found.rows);
  statistics->EstrContaTutteLeEstrazioniSortiteNelleDate(search.hit_dates);
  statistics->EstrContaCombinazioniTrovate(
      automation::checked_long(int64_t{found.ambate} + found.ambi + found.terni + found.quaterne + found.cinquine));
  statistics->EstrContaTutteLeEstrazioniNelleDate(ContaEstrazioniStorico(search.from, search.to, all_wheels));
  statistics->EstrAmbate(found.ambate);
  statistics->EstrAmbi(found.ambi);
  statistics->EstrTerni(found.terni);
  statistics->EstrQuaterne(found.quaterne);
  statistics->EstrCinquine(found.cinquine);
  statistics->EstrRuoteString(search.wheels);
  // Newest first whatever the order of the search, on purpose.
  statistics->Distanze()->LoadDistanze(search.numbers, search.combination, search.wheels, search.from, search.to,
                                       search.all_draws, search.all_wheels, false);
}

bool cLotto::UpdateTblStorico() {
  return trapped("cLotto.UpdateTblStorico()", false, [&] {
    events_.raise(loading_start);
    EndOfLoading end(events_);
    const std::string text = read_update_file(update_file_);
    if (text.empty()) {
      end.keep_silent();  // on purpose: nothing was loaded, so nothing ends
      return false;
    }
    // The host may take the connector away while it is yielded to.
    const Ref<DbConnector> held(&connector());
    import_history(*held, static_cast<DatabaseType>(database_type_), text, [&](int32_t position, int32_t count) {
      const std::array<Variant, 2> arguments{position, count};
      events_.raise(loading_progress, arguments);
    });
    return true;
  });
}

}  // namespace vestara
