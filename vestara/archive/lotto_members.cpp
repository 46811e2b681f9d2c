#include "vestara/archive/lotto_members.h"

#include <string>

#include "vestara/archive/lotto.h"
#include "vestara/foundation/late_bound.h"

namespace vestara {
namespace lotto_members {

using automation::by_value;
using automation::missable;
using automation::optional;
using automation::parameter;
using automation::Ref;
using row = automation::Rows<cLotto>;

constexpr auto rows = automation::member_rows(
    row::assigned_property<int16_t, &cLotto::DbType, &cLotto::DbType>(
        1, "DbType", "How the database takes rows: 1 one per INSERT, 2 many."),
    row::property<Ref<DbConnector>, &cLotto::ActiveConnection, &cLotto::ActiveConnection>(
        2, "ActiveConnection", "Always error 91.", "The connector that every query runs through."),
    row::assigned_property<std::string, &cLotto::FileUpdate, &cLotto::FileUpdate>(
        3, "FileUpdate", "Path of the update file of the import."),
    row::property<Ref<cStatistiche>, &cLotto::Statistiche, &cLotto::Statistiche>(
        4, "Statistiche", "Statistics of the last search.", "Replaces the statistics object."),
    row::property<bool, &cLotto::StatisticsIsActive, &cLotto::StatisticsIsActive>(5, "StatisticsIsActive",
                                                                                  "Whether searches fill Statistiche."),
    row::read_only<&cLotto::Ambate>(6, "Ambate", "Single numbers hit by the last search."),
    row::read_only<&cLotto::Ambi>(7, "Ambi", "Pairs hit by the last search."),
    row::read_only<&cLotto::Terni>(8, "Terni", "Triples hit by the last search."),
    row::read_only<&cLotto::Quaterne>(9, "Quaterne", "Quadruples hit by the last search."),
    row::read_only<&cLotto::Cinquine>(10, "Cinquine", "Quintuples hit by the last search."),
    row::read_only<&cLotto::ContaSortiteTrovate>(11, "ContaSortiteTrovate",
                                                 "Archive rows that the last search matched."),
    row::method<&cLotto::ContaEstrazioniStorico>(12, "ContaEstrazioniStorico",
                                                 "Counts the draw dates of a range, on one wheel (1..11) or all (12).",
                                                 optional("dtDa"), optional("dtA"), optional("Ruota", all_wheels)),
    row::method<&cLotto::GetRicerchePersonalizzate>(
        13, "GetRicerchePersonalizzate", "The saved search with this key, or all for -1.", optional("idRicerca", 0),
        optional("dtSaveDa"), optional("dtSaveA")),
    row::method<&cLotto::DeleteRicerchePersonalizzate>(14, "DeleteRicerchePersonalizzate", "Removes a saved search.",
                                                       parameter("lIdRicerca")),
    row::method<&cLotto::SaveRicerchePersonalizzate>(
        15, "SaveRicerchePersonalizzate", "Stores a search, a new one for key 0.", parameter("lIdRicerca"),
        parameter("sDescRicerca"), parameter("sNumeri"), parameter("iCombinazione"), parameter("sRuote"),
        missable(parameter("dtSave")), missable(parameter("dtDa")), missable(parameter("dtA"))),
    row::method<&cLotto::LoadLottoEstr>(
        16, "LoadLottoEstr", "Finds the draws that hold the given numbers.", optional("sNum", ""),
        optional("combinazioneTipo", 0), optional("sRuote", ""), by_value(optional("dtDa")), by_value(optional("dtA")),
        optional("bTutteLeEstrazioni", false), optional("bTutteLeRuote", false), optional("bSortASC", false)),
    row::method<&cLotto::GetDataEstrazioneDaConta>(17, "GetDataEstrazioneDaConta",
                                                   "The date of the draw so many draws back, 1 being the newest.",
                                                   parameter("nEstrazioniPrec"), optional("daDataNow")),
    row::method<&cLotto::SalvaEstrazione>(18, "SalvaEstrazione", "Stores a draw in place of its date's rows.",
                                          parameter("c_estr")),
    row::method<&cLotto::DelEstrazione>(19, "DelEstrazione", "Removes the rows of a date.", parameter("dt")),
    row::method<&cLotto::GetEstrazioneDaData>(20, "GetEstrazioneDaData", "The draw of a date, or nothing.",
                                              parameter("dtEstr")),
    row::method<&cLotto::GetMaxDateStorico>(21, "GetMaxDateStorico", "Date of the newest draw, as text."),
    row::method<&cLotto::GetMinDateStorico>(22, "GetMinDateStorico", "Date of the oldest draw, as text."),
    row::method<&cLotto::UpdateTblStorico>(23, "UpdateTblStorico", "Replaces the archive by the update file."));

constexpr automation::Parameter position(std::string_view name) {
  return {.name = name, .type = automation::ValueType::long_integer};
}

}  // namespace lotto_members

constexpr automation::Event loading_start{.id = 1, .name = "LoadingStart", .help = "The import begins."};
constexpr automation::Event loading_progress{
    .id = 2,
    .name = "LoadingProgress",
    .parameter_rows = {lotto_members::position("recPos"), lotto_members::position("recCount")},
    .parameter_count = 2,
    .help = "A statement of the import wrote rows."};
constexpr automation::Event loading_end{.id = 3, .name = "LoadingEnd", .help = "The import is over."};

const automation::ClassDescription& cLotto::surface() {
  static constexpr std::array events{loading_start, loading_progress, loading_end};
  static constexpr automation::ClassDescription surface{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cLotto",
      .event_interface = "__cLotto",
      .help = "The archive of draws: counts and bounds, hit search, single draws, saved searches, history import.",
      .members = lotto_members::rows,
      .events = events,
  };
  return surface;
}

}  // namespace vestara
