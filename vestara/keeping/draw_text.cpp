#include "vestara/keeping/draw_text.h"

#include "automation/text.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {

using Day = std::optional<automation::Date>;

std::string draw_delete_statement(const Day& day) { return "DELETE FROM storico WHERE dtEstr =" + day_literal(day); }

std::string draw_select_statement(const Day& day) { return "SELECT * FROM storico WHERE dtEstr =" + day_literal(day); }

std::string draw_insert_statement(const Day& day, std::string_view alias, std::string_view numbers, int16_t contest) {
  return automation::concatenated(
      {"INSERT INTO storico (dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)VALUES(", day_literal(day), ",'",
       alias, "',", numbers, ",", std::to_string(contest), ")"});
}

}  // namespace vestara
