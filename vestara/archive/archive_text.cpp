#include "vestara/archive/archive_text.h"

#include "automation/coercion.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/wheels.h"

namespace vestara {
DateBound bound_of_count(const automation::Variant& bound) {
  const automation::Variant plain = automation::to_plain(bound);
  const auto* text = plain.get_if<std::string>();
  return plain.is_empty() || (text && text->empty()) ? DateBound() : DateBound::given(plain);
}

std::string draw_count_statement(const DrawCountQuestion& question) {
  std::string condition = SqlAnd(date_clause("(dtEstr >=", question.from), date_clause("(dtEstr <=", question.to));
  if (question.wheel != all_wheels) condition = SqlAnd(condition, "(ruota='" + alias_of(question.wheel) + "')");
  condition = SqlAnd(condition, "(estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR estr5<>0)");
  return "SELECT storico.dtEstr From storico " + where_clause(condition) + " GROUP BY storico.dtEstr";
}

// The missing blank before "as" and the capital S are kept on purpose.
std::string newest_date_statement() { return "SELECT max(dtEstr)as dmax FROM Storico"; }
std::string oldest_date_statement() { return "SELECT min(dtEstr)as dmin FROM Storico"; }

}  // namespace vestara
