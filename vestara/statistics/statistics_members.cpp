#include <array>

#include "automation/member.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/statistics/statistics.h"

namespace vestara {
namespace {

using automation::optional;
using automation::parameter;
using automation::Ref;
using automation::Variant;
using row = automation::Rows<cStatistiche>;

constexpr std::array members{
    row::read_only<&cStatistiche::Distanze>(1, "Distanze", "The gaps between the hits of the same search."),
    row::get<Ref<DbConnector>, &cStatistiche::ActiveConnection>(2, "ActiveConnection", "The connector of Distanze."),
    row::putref<Ref<DbConnector>, &cStatistiche::ActiveConnection>(2, "ActiveConnection", "The connector of Distanze."),
    row::get<int32_t, &cStatistiche::EstrAmbate>(3, "EstrAmbate", "Single numbers hit."),
    row::put<int32_t, &cStatistiche::EstrAmbate>(3, "EstrAmbate", "Single numbers hit."),
    row::get<int32_t, &cStatistiche::EstrAmbi>(4, "EstrAmbi", "Pairs hit: a draw with three of the numbers has three."),
    row::put<int32_t, &cStatistiche::EstrAmbi>(4, "EstrAmbi", "Pairs hit: a draw with three of the numbers has three."),
    row::get<int32_t, &cStatistiche::EstrTerni>(5, "EstrTerni", "Triples hit."),
    row::put<int32_t, &cStatistiche::EstrTerni>(5, "EstrTerni", "Triples hit."),
    row::get<int32_t, &cStatistiche::EstrQuaterne>(6, "EstrQuaterne", "Quadruples hit."),
    row::put<int32_t, &cStatistiche::EstrQuaterne>(6, "EstrQuaterne", "Quadruples hit."),
    row::get<int32_t, &cStatistiche::EstrCinquine>(7, "EstrCinquine", "Quintuples hit."),
    row::put<int32_t, &cStatistiche::EstrCinquine>(7, "EstrCinquine", "Quintuples hit."),
    row::get<int16_t, &cStatistiche::EstrNumeriGiocatiQta>(8, "EstrNumeriGiocatiQta", "How many numbers were played."),
    row::put<int16_t, &cStatistiche::EstrNumeriGiocatiQta>(8, "EstrNumeriGiocatiQta", "How many numbers were played."),
    row::get<std::string, &cStatistiche::EstrNumeriString>(9, "EstrNumeriString", "The numbers played."),
    row::put<const std::string&, &cStatistiche::EstrNumeriString>(9, "EstrNumeriString",
                                                                  "The numbers played; also sets their count."),
    row::get<std::string, &cStatistiche::EstrRuoteString>(10, "EstrRuoteString", "The wheels played."),
    row::put<const std::string&, &cStatistiche::EstrRuoteString>(10, "EstrRuoteString",
                                                                 "The wheels played; also sets their count."),
    row::get<int16_t, &cStatistiche::EstrRuoteGiocateQta>(11, "EstrRuoteGiocateQta", "How many wheels were played."),
    row::put<int16_t, &cStatistiche::EstrRuoteGiocateQta>(11, "EstrRuoteGiocateQta", "How many wheels were played."),
    row::get<int32_t, &cStatistiche::EstrContaCombinazioniTrovate>(12, "EstrContaCombinazioniTrovate",
                                                                   "Combinations found."),
    row::put<int32_t, &cStatistiche::EstrContaCombinazioniTrovate>(12, "EstrContaCombinazioniTrovate",
                                                                   "Combinations found."),
    row::get<int16_t, &cStatistiche::EstrCombinazione>(13, "EstrCombinazione", "Numbers that make a hit, 1 to 5."),
    row::put<int16_t, &cStatistiche::EstrCombinazione>(13, "EstrCombinazione", "Numbers that make a hit, 1 to 5."),
    row::get<Variant, &cStatistiche::DataDa>(14, "DataDa", "Start of the searched range."),
    row::put<const Variant&, &cStatistiche::DataDa>(14, "DataDa", "Start of the searched range."),
    row::get<Variant, &cStatistiche::DataA>(15, "DataA", "End of the searched range."),
    row::put<const Variant&, &cStatistiche::DataA>(15, "DataA", "End of the searched range."),
    row::get<int32_t, &cStatistiche::EstrContaSortiteTrovate>(16, "EstrContaSortiteTrovate", "Hits found."),
    row::put<int32_t, &cStatistiche::EstrContaSortiteTrovate>(16, "EstrContaSortiteTrovate", "Hits found."),
    row::get<int32_t, &cStatistiche::EstrContaTutteLeEstrazioniNelleDate>(17, "EstrContaTutteLeEstrazioniNelleDate",
                                                                          "Draws in the range."),
    row::put<int32_t, &cStatistiche::EstrContaTutteLeEstrazioniNelleDate>(17, "EstrContaTutteLeEstrazioniNelleDate",
                                                                          "Draws in the range."),
    row::get<int32_t, &cStatistiche::EstrContaTutteLeEstrazioniSortiteNelleDate>(
        18, "EstrContaTutteLeEstrazioniSortiteNelleDate", "Draws in the range that held a hit."),
    row::put<int32_t, &cStatistiche::EstrContaTutteLeEstrazioniSortiteNelleDate>(
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
                                                    parameter("nCifre"), parameter("nComb")),
};

}  // namespace

const automation::ClassDescription& cStatistiche::description() const {
  static constexpr automation::ClassDescription description{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cStatistiche",
      .help = "What a search amounts to: hits, probabilities, expected draws, simple combinations.",
      .members = members};
  return description;
}

}  // namespace vestara
