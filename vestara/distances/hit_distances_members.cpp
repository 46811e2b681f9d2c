#include "automation/member.h"
#include "vestara/distances/hit_distances.h"
#include "vestara/foundation/late_bound.h"

namespace vestara {
namespace hit_distances_members {

using automation::optional;
using automation::parameter;
using automation::Ref;
using row = automation::Rows<cDistanze>;

constexpr auto rows = automation::member_rows(
    row::read_only<&cDistanze::ISSortASC>(1, "ISSortASC", "Whether the last load walked from the oldest draw on."),
    row::read_only<&cDistanze::ItemCount>(2, "ItemCount", "How many gaps there are."),
    row::read_only<&cDistanze::Distance>(3, "Distance", "Draws without a hit.", parameter("Index")),
    row::read_only<&cDistanze::DatePrec>(4, "DatePrec", "The earlier hit, or ########.", parameter("Index")),
    row::read_only<&cDistanze::DateLast>(5, "DateLast", "The later hit, or ########.", parameter("Index")),
    row::read_only<&cDistanze::DateDiff>(6, "DateDiff", "Days between the two hits, or ##.", parameter("Index")),
    row::read_only<&cDistanze::Ruota>(7, "Ruota", "Wheel of the hit, or ##.", parameter("Index")),
    row::read_only<&cDistanze::combinazione>(8, "combinazione", "How many numbers hit, or ##.", parameter("Index")),
    row::read_only<&cDistanze::ConcorsoNumero>(9, "ConcorsoNumero", "Contest of the hit, or ##.", parameter("Index")),
    row::read_only<&cDistanze::GetAVGDistance>(10, "GetAVGDistance", "Mean gap in draws, open gaps included."),
    row::read_only<&cDistanze::GetAVGDistanceDays>(11, "GetAVGDistanceDays", "Mean gap in days."),
    row::read_only<&cDistanze::GetMinDistance>(12, "GetMinDistance", "Smallest gap in draws."),
    row::read_only<&cDistanze::GetMaxDistance>(13, "GetMaxDistance", "Largest gap in draws."),
    row::read_only<&cDistanze::GetMinDistanceDays>(14, "GetMinDistanceDays", "Smallest gap in days."),
    row::read_only<&cDistanze::GetMaxDistanceDays>(15, "GetMaxDistanceDays", "Largest gap in days."),
    row::property<Ref<DbConnector>, &cDistanze::ActiveConnection, &cDistanze::ActiveConnection>(
        16, "ActiveConnection", "The connector that the load runs through."),
    row::method<&cDistanze::LoadDistanze>(17, "LoadDistanze", "Finds the gaps between the hits of a set of numbers.",
                                          optional("sNum", ""), optional("combinazioneTipo", 0), optional("sRuote", ""),
                                          optional("dtDa"), optional("dtA"), optional("bTutteLeEstrazioni", false),
                                          optional("bTutteLeRuote", false), optional("bSortASC", false)));

}  // namespace hit_distances_members

const automation::ClassDescription& cDistanze::surface() {
  static constexpr automation::ClassDescription surface{.library = "Vestara",
                                                        .name = contract_name,
                                                        .interface_name = "_cDistanze",
                                                        .help = "The gaps between successive hits.",
                                                        .members = hit_distances_members::rows};
  return surface;
}

}  // namespace vestara
