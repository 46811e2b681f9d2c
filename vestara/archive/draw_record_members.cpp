#include "automation/member.h"
#include "vestara/archive/draw_record.h"

namespace vestara {
namespace draw_record_members {

using automation::optional;
using automation::parameter;
using automation::Variant;
using row = automation::Rows<cEstrazione>;

constexpr auto rows = automation::member_rows(
    row::property<Variant, &cEstrazione::DataEstrazione, &cEstrazione::DataEstrazione>(1, "DataEstrazione",
                                                                                       "The date of the draw."),
    row::property<int16_t, &cEstrazione::NumeroConcorso, &cEstrazione::NumeroConcorso>(2, "NumeroConcorso",
                                                                                       "The contest number."),
    row::method<&cEstrazione::AddNumero>(3, "AddNumero", "Stores a number; positions run from 2 to 6.",
                                         parameter("Ruota"), parameter("EstrattoPos"), parameter("Numero"),
                                         optional("lIDStorico", 0)),
    row::method<&cEstrazione::GetNumero>(4, "GetNumero", "The number at position 1 to 5.", parameter("Ruota"),
                                         parameter("EstrattoPos")),
    row::method<&cEstrazione::GetNumeri>(5, "GetNumeri", "The numbers of a wheel, joined by commas.",
                                         parameter("Ruota")),
    row::method<&cEstrazione::Clear>(6, "Clear", "Forgets the numbers, not the keys, the contest and the date."),
    row::method<&cEstrazione::GetIdStorico>(7, "GetIdStorico", "The row key of a wheel.", parameter("Ruota")));

}  // namespace draw_record_members

const automation::ClassDescription& cEstrazione::surface() {
  static constexpr automation::ClassDescription surface{.library = "Vestara",
                                                        .name = contract_name,
                                                        .interface_name = "_cEstrazione",
                                                        .help = "One draw: date, contest, numbers of every wheel.",
                                                        .members = draw_record_members::rows};
  return surface;
}

}  // namespace vestara
