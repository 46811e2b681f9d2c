#include "automation/member.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/statistics/statistics.h"

namespace vestara {
namespace statistics_members {

using automation::optional;
using automation::parameter;
using automation::Ref;
using automation::Variant;
using row = automation::Rows<cStatistiche>;

constexpr auto rows = automation::member_rows(
    row::read_only<&cStatistiche::Distanze>(1, "Distanze", "The gaps between the hits of the same search."),
    row::property<Ref<DbConnector>, &cStatistiche::ActiveConnection, &cStatistiche::ActiveConnection>(
        2, "ActiveConnection", "The connector of Distanze."),
    row::property<int32_t, &cStatistiche::EstrAmbate, &cStatistiche::EstrAmbate>(3, "EstrAmbate",
                                                                                 "Single numbers hit."),
    row::property<int32_t, &cStatistiche::EstrAmbi, &cStatistiche::EstrAmbi>(
        4, "EstrAmbi", "Pairs hit: a draw with three of the numbers has three."),
    row::property<int32_t, &cStatistiche::EstrTerni, &cStatistiche::EstrTerni>(5, "EstrTerni", "Triples hit."),
    row::property<int32_t, &cStatistiche::EstrQuaterne, &cStatistiche::EstrQuaterne>(6, "EstrQuaterne",
                                                                                     "Quadruples hit."),
    row::property<int32_t, &cStatistiche::EstrCinquine, &cStatistiche::EstrCinquine>(7, "EstrCinquine",
                                                                                     "Quintuples hit."),
    row::property<int16_t, &cStatistiche::EstrNumeriGiocatiQta, &cStatistiche::EstrNumeriGiocatiQta>(
        8, "EstrNumeriGiocatiQta", "How many numbers were played."),
    row::property<std::string, &cStatistiche::EstrNumeriString, &cStatistiche::EstrNumeriString>(
        9, "EstrNumeriString", "The numbers played.", "The numbers played; also sets their count."),
    row::property<std::string, &cStatistiche::EstrRuoteString, &cStatistiche::EstrRuoteString>(
        10, "EstrRuoteString", "The wheels played.", "The wheels played; also sets their count."),
    row::property<int16_t, &cStatistiche::EstrRuoteGiocateQta, &cStatistiche::EstrRuoteGiocateQta>(
        11, "EstrRuoteGiocateQta", "How many wheels were played."),
    row::property<int32_t, &cStatistiche::EstrContaCombinazioniTrovate, &cStatistiche::EstrContaCombinazioniTrovate>(
        12, "EstrContaCombinazioniTrovate", "Combinations found."),
    row::property<int16_t, &cStatistiche::EstrCombinazione, &cStatistiche::EstrCombinazione>(
        13, "EstrCombinazione", "Numbers that make a hit, 1 to 5."),
    row::property<Variant, &cStatistiche::DataDa, &cStatistiche::DataDa>(14, "DataDa", "Start of the searched range."),
    row::property<Variant, &cStatistiche::DataA, &cStatistiche::DataA>(15, "DataA", "End of the searched range."),
    row::property<int32_t, &cStatistiche::EstrContaSortiteTrovate, &cStatistiche::EstrContaSortiteTrovate>(
        16, "EstrContaSortiteTrovate", "Hits found."),
    row::property<int32_t, &cStatistiche::EstrContaTutteLeEstrazioniNelleDate,
                  &cStatistiche::EstrContaTutteLeEstrazioniNelleDate>(17, "EstrContaTutteLeEstrazioniNelleDate",
                                                                      "Draws in the range."),
    row::property<int32_t, &cStatistiche::EstrContaTutteLeEstrazioniSortiteNelleDate,
                  &cStatistiche::EstrContaTutteLeEstrazioniSortiteNelleDate>(
        18, "EstrContaTutteLeEstrazioniSortiteNelleDate", "Draws in the range that held a hit."),
    row::method<&cStatistiche::CalcolaPercTeorica>(
        19, "CalcolaPercTeorica", "The probability of a hit in one draw, in percent.", parameter("QtaNumeriGiocati"),
        parameter("kComb"), parameter("QtaRuoteGiocate")),
    row::method<&cStatistiche::CalcolaNumEstrDaPerc>(
        20, "CalcolaNumEstrDaPerc", "Expected draws for one hit, -1 for never.", optional("bEffettiva", false)),
    row::method<&cStatistiche::EstrCalcolaPercEffettiva>(21, "EstrCalcolaPercEffettiva",
                                                         "Draws with a hit in a hundred of the range."),
    row::method<&cStatistiche::CombinazioniSempliciString>(
        22, "CombinazioniSempliciString", "All ways to choose EstrCombinazione of the numbers played, as texts."),
    row::method<&cStatistiche::CalcolaCombSemplici>(23, "CalcolaCombSemplici",
                                                    "How many ways there are to choose so many things.",
                                                    parameter("nCifre"), parameter("nComb")));

}  // namespace statistics_members

const automation::ClassDescription& cStatistiche::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cStatistiche",
      .help = "What a search amounts to: hits, probabilities, expected draws, simple combinations.",
      .members = statistics_members::rows};
  return surface;
}

}  // namespace vestara
