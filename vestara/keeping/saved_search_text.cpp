#include "vestara/keeping/saved_search_text.h"

#include "vestara/foundation/sql_text.h"

namespace vestara {

std::string saved_search_list_statement(int32_t id) {
  const std::string filter = id == every_search ? std::string() : "idRicerca=" + std::to_string(id);
  return "SELECT * FROM tRicerche" + where_clause(filter) + " ORDER BY dtSave Desc";
}

std::string saved_search_delete_statement(int32_t id) {
  return "DELETE FROM tRicerche WHERE idRicerca=" + std::to_string(id);
}

std::string saved_search_update_statement(const SavedSearch& search) {
  return "UPDATE tRicerche SET descRicerca='" + search.description + "',numeri='" + search.numbers +
         "',combinazione=" + std::to_string(search.combination) + ",ruote='" + search.wheels +
         "',dtSave=" + day_literal(search.saved) + ",dtDa=" + day_literal(search.from) +
         ",dtA=" + day_literal(search.to) + " WHERE idRicerca=" + std::to_string(search.id);
}

std::string saved_search_insert_statement(const SavedSearch& search) {
  // The last column is written with a capital D: kept on purpose, databases do not mind.
  return "INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES (" +
         std::to_string(search.id) + ",'" + search.description + "','" + search.numbers + "'," +
         std::to_string(search.combination) + ",'" + search.wheels + "'," + day_literal(search.saved) + "," +
         day_literal(search.from) + "," + day_literal(search.to) + ")";
}

}  // namespace vestara
