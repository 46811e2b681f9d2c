#include "vestara/frequency/analytic_table.h"

#include <utility>

#include "vestara/foundation/query.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/frequency_text.h"

namespace vestara {

using automation::Ref;
using automation::Variant;

namespace {
constexpr int32_t days_back = 730;
}

cTabAnalytics::cTabAnalytics(Clock clock) : clock_(std::move(clock)) {}

void cTabAnalytics::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  preload_if_open(connector_);
}

void cTabAnalytics::LoadTabelloneAnalitico(const Variant&, const Variant&) {
  lines_.clear();
  trapped("cTabAnalytics.LoadTabelloneAnalitico()", [&] {
    const auto from = automation::Date::from_day(clock_().day() - days_back);
    std::vector<AnalyticLine> lines;
    walk_rows(connector_, analytic_statement(from), [&](RecordSet& rows) { lines = scan_analytic_lines(rows); });
    lines_ = std::move(lines);
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
