#include "vestara/archive/draw_text.h"

#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/wheels.h"

namespace vestara {

std::string draw_delete_statement(const automation::Variant& date) {
  return "DELETE FROM storico WHERE dtEstr =" + sqlDateTime(date);
}

std::string draw_select_statement(const automation::Variant& date) {
  return "SELECT * FROM storico WHERE dtEstr =" + sqlDateTime(date);
}

std::string draw_insert_statement(const cEstrazione& draw, int32_t wheel) {
  return "INSERT INTO storico (dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)VALUES(" +
         sqlDateTime(draw.DataEstrazione()) + ",'" + alias_of(wheel) + "'," + draw.GetNumeri(wheel) + "," +
         std::to_string(draw.NumeroConcorso()) + ")";
}

}  // namespace vestara
