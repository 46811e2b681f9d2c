#include "vestara/distances/gap_text.h"

#include "automation/text.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {

std::string gap_statement(const GapQuestion& question) {
  const std::string period = period_condition("sto.dtEstr", question.draws.from, question.draws.to);
  const std::string wheels = in_parentheses(question.draws.wheels.terms("ruota="));
  const std::string of_period = where_clause(period);
  const std::string of_hits = where_clause(SqlAnd(period, wheels));
  const std::string least_hits = std::to_string(question.least_hits);
  const std::string_view n = question.numbers;
  const std::string_view order = order_word(question.order);
  // No blank between the condition and "Group by".
  return automation::concatenated({"SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati ",
                                   "FROM (SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto ",
                                   of_period,
                                   " ORDER BY sto.dtEstr ",
                                   order,
                                   ")  AS R1 LEFT JOIN ",
                                   "(SELECT sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati ",
                                   "FROM storico AS sto inner join(SELECT s1.id, s1.numeriTrovati ",
                                   "From (SELECT s.id, Count(*) AS numeriTrovati FROM ",
                                   "(SELECT id from storico where estr1 IN(",
                                   n,
                                   ") Union All SELECT id from storico where estr2 IN(",
                                   n,
                                   ") Union All SELECT id from storico where estr3 IN(",
                                   n,
                                   ") Union All SELECT id from storico where estr4 IN(",
                                   n,
                                   ") Union All SELECT id from storico where estr5 IN(",
                                   n,
                                   "))AS s GROUP BY s.id Having (Count(s.id) >=",
                                   least_hits,
                                   "))as s1)as s2 on sto.id = s2.id ",
                                   of_hits,
                                   "Group by dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr ",
                                   order,
                                   ")  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by R1.dtEstr ",
                                   order});
}

}  // namespace vestara
