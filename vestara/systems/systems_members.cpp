#include "automation/member.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/systems/systems.h"

namespace vestara {
namespace systems_members {

using automation::optional;
using automation::Parameter;
using automation::parameter;
using automation::Ref;
using row = automation::Rows<cSistemi>;

constexpr Parameter number = parameter("num");

constexpr auto rows = automation::member_rows(
    row::property<Ref<DbConnector>, &cSistemi::ActiveConnection, &cSistemi::ActiveConnection>(
        1, "ActiveConnection", "The connector of the catalogue."),
    row::method<&cSistemi::SysGemelli2Str>(2, "SysGemelli2Str", "Numbers of two equal digits."),
    row::method<&cSistemi::SysVertibili2Str>(3, "SysVertibili2Str", "Pairs of numbers with digits exchanged."),
    row::method<&cSistemi::SysCadenze2Str>(4, "SysCadenze2Str", "Numbers with the same last digit.", number),
    row::method<&cSistemi::SysFibonacci2Str>(5, "SysFibonacci2Str", "Ten numbers, each the sum of the two before.",
                                             number),
    row::method<&cSistemi::SysDecine2Str>(6, "SysDecine2Str", "Eleven numbers in a row, or the ten of 90.", number),
    row::method<&cSistemi::SysFigure2Str>(7, "SysFigure2Str", "Numbers nine apart.", number),
    row::method<&cSistemi::GetRndNumber>(8, "GetRndNumber", "Fills an array with random numbers.",
                                         parameter("serieOUT"), parameter("kNum"), parameter("minNum"),
                                         parameter("maxNum"), parameter("bRepeat")),
    row::method<&cSistemi::ArrNumbersSort>(9, "ArrNumbersSort", "Sorts an array by number.", parameter("pvarArray")),
    row::method<&cSistemi::CombinazioniIntegraliString>(10, "CombinazioniIntegraliString",
                                                        "All combinations of a list, one a line.", parameter("sNumeri"),
                                                        parameter("iNumeroElementi"), optional("nCombi", 0)),
    row::method<&cSistemi::ContaCombinazioniIntegrali>(
        11, "ContaCombinazioniIntegrali", "How many combinations there are.", parameter("nCifre"), parameter("nComb")),
    row::method<&cSistemi::GetSistemiLista>(12, "GetSistemiLista", "The saved systems that meet every filter given.",
                                            optional("idSis", 0), optional("sisTipo", ""), optional("titolo", ""),
                                            optional("descrizione", ""), optional("QtaNumeri", 0),
                                            optional("nGiocate", 0), optional("kColonne", 0), optional("garanzia", 0)),
    row::method<&cSistemi::GetCombiNumbers>(13, "GetCombiNumbers", "The distinct numbers of a system, ascending.",
                                            parameter("sCombi")),
    row::method<&cSistemi::CombiTextFilter>(14, "CombiTextFilter", "A system from its first digit to its last.",
                                            parameter("sCombi")),
    row::method<&cSistemi::GetSisNumsConvert>(15, "GetSisNumsConvert", "A system played with other numbers.",
                                              parameter("sCombi"), parameter("sNumsNew"), parameter("sCombiRes")),
    row::method<&cSistemi::GetSistemaCombi>(16, "GetSistemaCombi", "The combinations of a saved system.",
                                            parameter("lIdSis"), optional("sNumeri", ""), optional("sResCombi", "")),
    row::method<&cSistemi::SalvaSistema>(17, "SalvaSistema", "Stores a system under a new key.", parameter("idSis"),
                                         parameter("sistemaCombi"), parameter("titolo"), parameter("descrizione"),
                                         parameter("numeri"), parameter("QtaNumeri"), parameter("kColonne"),
                                         parameter("nGiocate"), parameter("iGaranzia")),
    row::method<&cSistemi::DelSistema>(18, "DelSistema", "Removes a system.", parameter("lIdSis")),
    row::method<&cSistemi::DelSistemaDetail>(19, "DelSistemaDetail", "Removes the combinations of a system.",
                                             parameter("lID")));

}  // namespace systems_members

const automation::ClassDescription& cSistemi::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_cSistemi",
      .help = "Betting systems: number sets, random numbers, combinations, the catalogue of saved systems.",
      .members = systems_members::rows};
  return surface;
}

}  // namespace vestara
