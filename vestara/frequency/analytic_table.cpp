#include "vestara/frequency/analytic_table.h"

#include <array>
#include <utility>

#include "automation/member.h"
#include "vestara/foundation/late_bound.h"
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

namespace {

using automation::by_value;
using automation::optional;
using automation::parameter;
using row = automation::Rows<cTabAnalytics>;

constexpr automation::Parameter place = by_value(parameter("Index"));

constexpr std::array members{
    row::read_only<&cTabAnalytics::GetItemCount>(1, "GetItemCount", "How many lines there are."),
    row::read_only<&cTabAnalytics::GetNumeriByIndex>(2, "GetNumeriByIndex", "Numbers of a line, joined by points.",
                                                     place),
    row::read_only<&cTabAnalytics::GetRuotaByIndex>(3, "GetRuotaByIndex", "Wheel of a line.", place),
    row::read_only<&cTabAnalytics::GetERuotaByIndex>(4, "GetERuotaByIndex", "Enumerator of a line's wheel.", place),
    row::read_only<&cTabAnalytics::GetRitardoByIndex>(5, "GetRitardoByIndex", "Draw dates since, 0 for the newest.",
                                                      place),
    row::get<Ref<DbConnector>, &cTabAnalytics::ActiveConnection>(6, "ActiveConnection",
                                                                 "The connector that the load runs through."),
    row::putref<Ref<DbConnector>, &cTabAnalytics::ActiveConnection>(6, "ActiveConnection",
                                                                    "The connector that the load runs through."),
    row::method<&cTabAnalytics::LoadTabelloneAnalitico>(
        7, "LoadTabelloneAnalitico", "Builds the table of the last 730 days.", optional("dtDa"), optional("dtA")),
};

}  // namespace

const automation::ClassDescription& cTabAnalytics::description() const {
  static constexpr automation::ClassDescription description{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cTabAnalytics",
      .help = "The analytic table: draws of the last two years in which numbers came out for the last time.",
      .members = members};
  return description;
}

}  // namespace vestara
