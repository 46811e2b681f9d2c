#include "vestara/frequency/frequency_text.h"

#include "automation/text.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {
namespace {

constexpr std::string_view complete_draw = "WHERE estr1 >0 AND estr2 >0 AND estr3 >0 AND estr4 >0 AND estr5 >0";

/// The wheel terms as the binding wants them.
std::string bound_terms(std::string terms, PeriodBinding binding) {
  return binding == PeriodBinding::first_wheel ? terms : in_parentheses(terms);
}

std::string frequency_filter(const DrawSelection& selection, PeriodBinding binding) {
  return where_clause(SqlAnd(period_condition("st.dtEstr", selection.from, selection.to),
                             bound_terms(selection.wheels.terms("st.ruota IN(", ")"), binding)));
}

}  // namespace

std::string delay_statement(const DrawSelection& selection, PeriodBinding binding) {
  const std::string filter = SqlAnd(period_condition("dtEstr", selection.from, selection.to),
                                    bound_terms(selection.wheels.terms("ruota="), binding));
  return automation::concatenated({"SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM STORICO ", complete_draw,
                                   filter.empty() ? "" : " AND ", filter, " ORDER BY dtEstr DESC"});
}

std::string frequency_statement(const DrawSelection& selection, PeriodBinding binding) {
  constexpr std::string_view columns =
      "SELECT storico.ID, storico.concorsoNumero, storico.dtestr,  storico.ruota,  storico.estr";
  return automation::concatenated({"SELECT st.ruota, st.estrazione, count(*) AS num FROM (", columns,
                                   "1 as estrazione FROM storico Union All ", columns, "2 From storico Union All ",
                                   columns, "3 From storico Union All ", columns, "4 From storico Union All ", columns,
                                   "5 From storico)AS st ", frequency_filter(selection, binding),
                                   " GROUP BY st.ruota,st.estrazione ORDER BY count(*) DESC"});
}

std::string draw_dates_statement(const DrawSelection& selection, PeriodBinding binding) {
  return "SELECT st.dtEstr From storico as st" + frequency_filter(selection, binding) + " GROUP BY st.dtEstr";
}

std::string analytic_statement(automation::Date from) {
  // The day goes through its text: what a literal is made of is a text that reads as a date.
  return automation::concatenated({"SELECT dtEstr,ruota,estr1,estr2,estr3,estr4,estr5 FROM STORICO ", complete_draw,
                                   " AND dtEstr >=", sqlDateTime(automation::date_to_text(from)),
                                   " ORDER BY dtEstr DESC"});
}

}  // namespace vestara
