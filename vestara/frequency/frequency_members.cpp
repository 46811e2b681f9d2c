#include "automation/member.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/frequency/frequency.h"

namespace vestara {
namespace frequency_members {

using automation::by_value;
using automation::optional;
using automation::Parameter;
using automation::parameter;
using automation::Ref;
using row = automation::Rows<cFrequenza>;

constexpr Parameter number = by_value(parameter("Numero"));
constexpr Parameter wheel = parameter("Ruota");
constexpr Parameter place = parameter("Index");
constexpr Parameter from = optional("dtDa");
constexpr Parameter to = optional("dtA");
constexpr Parameter wheels = optional("sRuote", "");

constexpr auto rows = automation::member_rows(
    row::property<Ref<DbConnector>, &cFrequenza::ActiveConnection, &cFrequenza::ActiveConnection>(
        1, "ActiveConnection", "The connector that the loads run through."),
    row::read_only<&cFrequenza::GetRitNum>(2, "GetRitNum", "Delay of a number on a wheel, -1 when never drawn.", number,
                                           wheel),
    row::read_only<&cFrequenza::GetRitTopTenERuota>(3, "GetRitTopTenERuota", "Wheel of a ranked delay.", place),
    row::read_only<&cFrequenza::GetRitTopTenNumero>(4, "GetRitTopTenNumero", "Number of a ranked delay.", place),
    row::read_only<&cFrequenza::GetRitTopTen>(5, "GetRitTopTen", "A ranked delay: 0 is the largest.", place),
    row::method<&cFrequenza::LoadRitardi>(6, "LoadRitardi", "Finds every number's delay on every wheel.", from, to,
                                          wheels),
    row::read_only<&cFrequenza::GetFrqNum>(7, "GetFrqNum", "How often a number came out on a wheel.", number, wheel),
    row::read_only<&cFrequenza::GetFrqNumAVG>(8, "GetFrqNumAVG", "How often in a hundred draws.", number, wheel),
    row::read_only<&cFrequenza::GetFrqTopTenERuotaAVG>(9, "GetFrqTopTenERuotaAVG", "Wheel of a ranked average.", place),
    row::read_only<&cFrequenza::GetFrqTopTenNumeroAVG>(10, "GetFrqTopTenNumeroAVG", "Number of a ranked average.",
                                                       place),
    row::read_only<&cFrequenza::GetFrqTopTenAVG>(11, "GetFrqTopTenAVG", "A ranked average: 0 is the largest.", place),
    row::read_only<&cFrequenza::GetFrqTopTenERuota>(12, "GetFrqTopTenERuota", "Wheel of a ranked count.", place),
    row::read_only<&cFrequenza::GetFrqTopTenNumero>(13, "GetFrqTopTenNumero", "Number of a ranked count.", place),
    row::read_only<&cFrequenza::GetFrqTopTen>(14, "GetFrqTopTen", "A ranked count: 0 is the largest.", place),
    row::method<&cFrequenza::LoadFrequenzaMedia>(15, "LoadFrequenzaMedia", "Counts in a hundred draws.", from, to,
                                                 wheels),
    row::method<&cFrequenza::LoadFrequenti>(16, "LoadFrequenti", "Counts every number on every wheel.", from, to,
                                            wheels));

}  // namespace frequency_members

const automation::ClassDescription& cFrequenza::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cFrequenza",
      .help = "Delays and frequencies of every number on every wheel.",
      .members = frequency_members::rows};
  return surface;
}

}  // namespace vestara
