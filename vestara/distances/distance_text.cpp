#include "vestara/distances/distance_text.h"

#include "automation/text.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {
namespace {

std::string statement(std::string_view select, const DistancePeriod& period, std::string_view wheels) {
  const std::string dates = period_condition("dtEstr", period.from, period.to);
  const std::string condition = SqlAnd(SqlAnd("(estr1 is not null AND estr2 is not null and estr3 is not null "
                                              "and estr4 is not null and estr5 is not null)",
                                              dates),
                                       wheels);
  return automation::concatenated(
      {select, " FROM storico", where_clause(condition), " ORDER BY dtEstr ", order_word(period.order)});
}

}  // namespace

std::string wheel_draws_statement(const DistancePeriod& period, const WheelFilter& wheels) {
  return statement("SELECT ruota,estr1,estr2,estr3,estr4,estr5", period, in_parentheses(wheels.terms("ruota=")));
}

std::string all_draws_statement(const DistancePeriod& period, NationalWheel national) {
  return statement("SELECT estr1,estr2,estr3,estr4,estr5,dtEstr", period,
                   national == NationalWheel::left_out ? "(ruota <> 'RN')" : "");
}

}  // namespace vestara
