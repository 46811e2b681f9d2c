#include "vestara/archive/search_text.h"

#include "vestara/foundation/sql_text.h"

namespace vestara {
namespace {

std::string_view direction(DateOrder order) { return order == DateOrder::oldest_first ? "ASC" : "DESC"; }

std::string date_condition(const SearchQuestion& question, std::string_view column) {
  const std::string prefix = "(" + std::string(column);
  return SqlAnd(date_clause(prefix + " >=", question.from), date_clause(prefix + " <=", question.to));
}

std::string wheel_condition(const SearchQuestion& question, std::string_view prefix) {
  std::string condition;
  for (const std::string_view item : question.wheel_items)
    condition = SqlOr(condition, std::string(prefix) + std::string(item));
  return condition.empty() ? condition : "(" + condition + ")";
}

std::string text_of(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

/// Without a date condition one blank keeps the words apart; with one, ")" and "ORDER" touch.
std::string listing(std::string_view select, const SearchQuestion& question, std::string_view alias) {
  const std::string where = where_clause(date_condition(question, std::string(alias) + ".dtEstr"));
  return text_of({select, where.empty() ? " " : where, "ORDER BY ", alias, ".dtEstr ", direction(question.order)});
}

}  // namespace

std::string counting_statement(const SearchQuestion& question) {
  if (question.draws == DrawChoice::all_draws)
    return listing("SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto", question, "sto");
  const std::string where =
      where_clause(SqlAnd(date_condition(question, "sto.dtEstr"), wheel_condition(question, "ruota=")));
  const std::string_view n = question.numbers;
  return text_of({"SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(",
                  "SELECT s1.id, s1.numeriTrovati From (",
                  "SELECT s.id, Count(*) AS numeriTrovati FROM (",
                  "SELECT id from storico where estr1 IN(",
                  n,
                  ") Union All ",
                  "SELECT id from storico where estr2 IN(",
                  n,
                  ") Union All ",
                  "SELECT id from storico where estr3 IN(",
                  n,
                  ") Union All ",
                  "SELECT id from storico where estr4 IN(",
                  n,
                  ") Union All ",
                  "SELECT id from storico where estr5 IN(",
                  n,
                  "))  AS s ",
                  "GROUP BY s.id Having (Count(s.id) >=",
                  std::to_string(question.least_hits),
                  ")) s1) s2 ",
                  "on sto.id = s2.id",
                  where,
                  " ORDER BY sto.dtEstr ",
                  direction(question.order)});
}

std::string dates_statement(const SearchQuestion& question) {
  if (question.draws == DrawChoice::all_draws)
    return listing("SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s", question, "s");
  const std::string where =
      where_clause(SqlAnd(date_condition(question, "s.dtEstr"), wheel_condition(question, "s.ruota=")));
  const std::string_view n = question.numbers;
  // No blank after the first list, none between the condition and GROUP BY.
  return text_of({"SELECT DISTINCT s.dtEstr, s.concorsoNumero ",
                  "FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where estr1 IN(",
                  n,
                  ")",
                  "Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(",
                  n,
                  ") ",
                  "Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr3 IN(",
                  n,
                  ") ",
                  "Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr4 IN(",
                  n,
                  ") ",
                  "Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr5 IN(",
                  n,
                  ")) AS s ",
                  where,
                  "GROUP BY s.dtEstr,s.concorsoNumero,s.id ",
                  "Having(Count(S.id) >= ",
                  std::to_string(question.least_hits),
                  ") ORDER BY s.dtEstr ",
                  direction(question.order)});
}

}  // namespace vestara
