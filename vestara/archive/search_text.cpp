#include "vestara/archive/search_text.h"

#include "automation/text.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {
namespace {

std::string period(const SearchQuestion& question, std::string_view column) {
  return period_condition(column, question.selection.from, question.selection.to);
}

std::string wheels(const SearchQuestion& question, std::string_view prefix) {
  return in_parentheses(question.selection.wheels.terms(prefix));
}

/// Without a date condition one blank keeps the words apart; with one, ")" and "ORDER" touch.
std::string listing(std::string_view select, const SearchQuestion& question, std::string_view alias) {
  const std::string where = where_clause(period(question, std::string(alias) + ".dtEstr"));
  return automation::concatenated(
      {select, where.empty() ? " " : where, "ORDER BY ", alias, ".dtEstr ", order_word(question.order)});
}

}  // namespace

std::string counting_statement(const SearchQuestion& question) {
  if (question.draws == DrawChoice::all_draws)
    return listing("SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto", question, "sto");
  const std::string where = where_clause(SqlAnd(period(question, "sto.dtEstr"), wheels(question, "ruota=")));
  const std::string_view n = question.numbers;
  return automation::concatenated(
      {"SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(",
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
       order_word(question.order)});
}

std::string dates_statement(const SearchQuestion& question) {
  if (question.draws == DrawChoice::all_draws)
    return listing("SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s", question, "s");
  const std::string where = where_clause(SqlAnd(period(question, "s.dtEstr"), wheels(question, "s.ruota=")));
  const std::string_view n = question.numbers;
  // No blank after the first list, none between the condition and GROUP BY.
  return automation::concatenated({"SELECT DISTINCT s.dtEstr, s.concorsoNumero ",
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
                                   order_word(question.order)});
}

}  // namespace vestara
