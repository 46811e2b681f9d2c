#include "vestara/keeping/catalogue_text.h"

#include <initializer_list>

#include "automation/text.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {
namespace {

std::string escaped(std::string_view text) {
  std::string copy(text);
  return SAPEX(copy);
}

std::string contains(std::string_view column, std::string_view text) {
  return text.empty() ? std::string() : automation::concatenated({"(", column, " LIKE '%", escaped(text), "%')"});
}

std::string equals(std::string_view column, int32_t value) {
  return value == 0 ? std::string() : automation::concatenated({"(", column, "=", std::to_string(value), ")"});
}

}  // namespace

std::string system_list_statement(const SystemFilter& filter) {
  std::string condition;
  if (!filter.kind.empty()) condition = automation::concatenated({"(sistipo='", filter.kind, "')"});
  for (const std::string& term :
       {contains("titolo", filter.title), contains("descrizione", filter.description),
        equals("qtaNumeri", filter.numbers), equals("kColonne", filter.columns), equals("garanzia", filter.guarantee),
        equals("nGiocate", filter.bets), equals("idSis", filter.key)})
    condition = SqlAnd(condition, term);
  return "SELECT * FROM tSistemi" + where_clause(condition);
}

std::string system_combinations_statement(int32_t key) {
  return "SELECT tSistemi.sisTipo, tSistemaDetail.combinazione, tSistemaDetail.id FROM tSistemi "
         "LEFT JOIN tSistemaDetail ON tSistemi.idSis = tSistemaDetail.idSis WHERE tSistemaDetail.idSis=" +
         std::to_string(key);
}

std::string system_insert_statement(int32_t key, const SystemHeader& header) {
  // No blank before VALUES.
  return automation::concatenated(
      {"INSERT INTO tSistemi (idSis,titolo,descrizione,numeri,qtaNumeri,nGiocate,kColonne,garanzia,sisTipo)VALUES(",
       std::to_string(key), ",'", escaped(header.title), "','", escaped(header.description), "','", header.numbers,
       "',", std::to_string(header.number_count), ",", std::to_string(header.bets), ",", std::to_string(header.columns),
       ",", std::to_string(header.guarantee), ",'U')"});
}

std::string combination_insert_statement(int32_t key, std::string_view combination) {
  return automation::concatenated(
      {"INSERT INTO tSistemaDetail (idSis,combinazione)VALUES(", std::to_string(key), ",'", combination, "')"});
}

std::string edited_system_delete_statement(int32_t key) {
  return "delete FROM tSistemi WHERE idSis=" + std::to_string(key);
}
std::string edited_combinations_delete_statement(int32_t key) {
  return "delete FROM tSistemaDetail WHERE idSis=" + std::to_string(key);
}
std::string system_delete_statement(int32_t key) { return "delete FROM tSistemi WHERE idSis =" + std::to_string(key); }
std::string combinations_delete_statement(int32_t key) {
  return "delete FROM tSistemaDetail WHERE idSis =" + std::to_string(key);
}

}  // namespace vestara
