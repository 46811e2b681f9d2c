#include "automation/member.h"
#include "vestara/distances/number_distances.h"
#include "vestara/foundation/late_bound.h"

namespace vestara {
namespace number_distances_members {

using automation::optional;
using automation::Parameter;
using automation::parameter;
using automation::Ref;
using row = automation::Rows<cDistanze2>;

constexpr Parameter from = optional("dtDa");
constexpr Parameter to = optional("dtA");
constexpr Parameter without_national = optional("bEscludiRN", false);
constexpr Parameter ascending = optional("bSortASC", false);
constexpr Parameter least = optional("valMin", 0);
constexpr Parameter most = optional("valMax", 0);

constexpr auto rows = automation::member_rows(
    row::method<&cDistanze2::LoadDistanze2Ambi>(1, "LoadDistanze2Ambi", "Finds the distances of pairs on each wheel.",
                                                parameter("sRuoteAlias"), from, to, ascending),
    row::method<&cDistanze2::LoadDistanze2AmbiTutte>(2, "LoadDistanze2AmbiTutte",
                                                     "Finds the distances of pairs over all wheels.", from, to,
                                                     without_national, ascending),
    row::method<&cDistanze2::LoadDistanze1>(3, "LoadDistanze1", "Finds the distances of numbers on each wheel.",
                                            parameter("sRuoteAlias"), from, to, ascending),
    row::method<&cDistanze2::LoadDistanze1Tutte>(4, "LoadDistanze1Tutte",
                                                 "Finds the distances of numbers over all wheels.", from, to,
                                                 without_national, ascending),
    row::putref<Ref<DbConnector>, &cDistanze2::ActiveConnection>(5, "ActiveConnection",
                                                                 "The connector that the loads run through."),
    row::method<&cDistanze2::ItemCount>(6, "ItemCount", "How often a number came out on a wheel.", parameter("iNum"),
                                        parameter("ruotaEnum")),
    row::method<&cDistanze2::GetDistanzeAmbi>(7, "GetDistanzeAmbi",
                                              "Distances of a pair on a wheel, or on all for a negative one.",
                                              parameter("iNum1"), parameter("iNum2"), optional("ruotaEnum", 0)),
    row::method<&cDistanze2::GetDistanzeSingleNumber>(8, "GetDistanzeSingleNumber",
                                                      "Distances of a number on a wheel, or on all for a negative one.",
                                                      parameter("iNum"), optional("ruotaEnum", 0)),
    row::method<&cDistanze2::GetDistanzeAVG1>(9, "GetDistanzeAVG1", "Mean distance of a number on a wheel.",
                                              parameter("num"), parameter("Ruota"), least, most),
    row::method<&cDistanze2::GetDistanzeAVG2Ambi>(10, "GetDistanzeAVG2Ambi", "Mean distance of a pair on a wheel.",
                                                  parameter("num1"), parameter("num2"), parameter("Ruota"), least,
                                                  most),
    row::method<&cDistanze2::GetDistanzeAVG2AmbiTutte>(11, "GetDistanzeAVG2AmbiTutte",
                                                       "Mean distance of a pair over all wheels.", parameter("num1"),
                                                       parameter("num2"), least, most),
    row::method<&cDistanze2::GetDistanzeAVG1Tutte>(
        12, "GetDistanzeAVG1Tutte", "Mean distance of a number over all wheels.", parameter("num"), least, most),
    row::method<&cDistanze2::StandardDeviation>(13, "StandardDeviation", "Standard deviation of an array of numbers.",
                                                parameter("Arr"), optional("SampleStdDev", true),
                                                optional("IgnoreEmpty", true)));

}  // namespace number_distances_members

const automation::ClassDescription& cDistanze2::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cDistanze2",
      .help = "Distances between successive appearances of numbers and pairs.",
      .members = number_distances_members::rows};
  return surface;
}

}  // namespace vestara
