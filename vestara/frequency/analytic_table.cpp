#include "vestara/frequency/analytic_table.h"

#include <utility>

#include "vestara/foundation/query.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/loads.h"

namespace vestara {

using automation::Ref;
using automation::Variant;

cTabAnalytics::cTabAnalytics(Clock clock) : clock_(std::move(clock)) {}

void cTabAnalytics::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  preload_if_open(connector_);
}

void cTabAnalytics::LoadTabelloneAnalitico(const Variant&, const Variant&) {
  lines_.clear();
  trapped("cTabAnalytics.LoadTabelloneAnalitico()", [&] {
    const automation::Date today = clock_();
    load_analytic_lines(required(connector_), today, lines_);
  });
}

AnalyticLine cTabAnalytics::line(int16_t index) const {
  return index >= 0 && index < GetItemCount() ? lines_[static_cast<size_t>(index)] : AnalyticLine{};
}

int16_t cTabAnalytics::GetItemCount() const { return static_cast<int16_t>(lines_.size()); }
std::string cTabAnalytics::GetNumeriByIndex(int16_t Index) const { return line(Index).numbers; }
std::string cTabAnalytics::GetRuotaByIndex(int16_t Index) const { return line(Index).wheel; }
int16_t cTabAnalytics::GetERuotaByIndex(int16_t Index) const { return line(Index).wheel_enumerator; }
int16_t cTabAnalytics::GetRitardoByIndex(int16_t Index) const { return line(Index).delay; }

}  // namespace vestara
