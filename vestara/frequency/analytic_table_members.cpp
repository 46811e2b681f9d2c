#include "automation/member.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/frequency/analytic_table.h"

namespace vestara {
namespace analytic_table_members {

using automation::by_value;
using automation::optional;
using automation::parameter;
using automation::Ref;
using row = automation::Rows<cTabAnalytics>;

constexpr automation::Parameter place = by_value(parameter("Index"));

constexpr auto rows = automation::member_rows(
    row::read_only<&cTabAnalytics::GetItemCount>(1, "GetItemCount", "How many lines there are."),
    row::read_only<&cTabAnalytics::GetNumeriByIndex>(2, "GetNumeriByIndex", "Numbers of a line, joined by points.",
                                                     place),
    row::read_only<&cTabAnalytics::GetRuotaByIndex>(3, "GetRuotaByIndex", "Wheel of a line.", place),
    row::read_only<&cTabAnalytics::GetERuotaByIndex>(4, "GetERuotaByIndex", "Enumerator of a line's wheel.", place),
    row::read_only<&cTabAnalytics::GetRitardoByIndex>(5, "GetRitardoByIndex", "Draw dates since, 0 for the newest.",
                                                      place),
    row::property<Ref<DbConnector>, &cTabAnalytics::ActiveConnection, &cTabAnalytics::ActiveConnection>(
        6, "ActiveConnection", "The connector that the load runs through."),
    row::method<&cTabAnalytics::LoadTabelloneAnalitico>(
        7, "LoadTabelloneAnalitico", "Builds the table of the last 730 days.", optional("dtDa"), optional("dtA")));

}  // namespace analytic_table_members

const automation::ClassDescription& cTabAnalytics::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cTabAnalytics",
      .help = "The analytic table: draws of the last two years in which numbers came out for the last time.",
      .members = analytic_table_members::rows};
  return surface;
}

}  // namespace vestara
