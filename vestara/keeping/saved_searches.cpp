#include "vestara/keeping/saved_searches.h"

#include "automation/int16.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/keeping/saved_search_text.h"

namespace vestara {

bool store_escaped(DbConnector& connector, SavedSearch& search) {
  if (search.id != 0) return connector.ExecuteSql(saved_search_update_statement(search));
  search.id = automation::checked_long(int64_t{connector.GetMaxId("tRicerche", "idRicerca")} + 1);
  return connector.ExecuteSql(saved_search_insert_statement(search));
}

int32_t save_search(DbConnector& connector, SavedSearch search) {
  for (std::string* text : {&search.description, &search.numbers, &search.wheels}) SAPEX(*text);
  if (!store_escaped(connector, search)) throw statement_refused("the search");
  return search.id;
}

void delete_search(DbConnector& connector, int32_t id) {
  if (!connector.ExecuteSql(saved_search_delete_statement(id))) throw statement_refused("to delete a saved search");
}

}  // namespace vestara
