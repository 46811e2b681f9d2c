#include "vestara/keeping/saved_systems.h"

#include <algorithm>

#include "automation/int16.h"
#include "vestara/foundation/query.h"
#include "vestara/keeping/catalogue_text.h"

namespace vestara {

bool store_system(DbConnector& connector, int32_t& key, const SystemHeader& header,
                  std::span<const std::string_view> combinations) {
  const bool removed = key == 0 || (connector.ExecuteSql(edited_system_delete_statement(key)) &&
                                    connector.ExecuteSql(edited_combinations_delete_statement(key)));
  if (!removed) return false;
  key = automation::checked_long(int64_t{connector.GetMaxId("tSistemi", "idSis")} + 1);
  return connector.ExecuteSql(system_insert_statement(key, header)) &&
         std::all_of(combinations.begin(), combinations.end(), [&](std::string_view combination) {
           return connector.ExecuteSql(combination_insert_statement(key, combination));
         });
}

bool remove_system(DbConnector& connector, int32_t key) {
  return connector.ExecuteSql(combinations_delete_statement(key)) && connector.ExecuteSql(system_delete_statement(key));
}

int32_t save_system(DbConnector& connector, int32_t replaced, const SystemHeader& header,
                    std::span<const std::string_view> combinations) {
  return whole("the system", replaced,
               [&](int32_t& key) { return store_system(connector, key, header, combinations); });
}

void delete_system(DbConnector& connector, int32_t key) {
  if (!remove_system(connector, key)) throw statement_refused("to delete a saved system");
}

}  // namespace vestara
