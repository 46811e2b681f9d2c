#include "vestara/draws/day_literal.h"

#include "automation/date.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {

std::string day_literal(int32_t day) { return sqlDateTime(automation::Date::from_day(day)); }

}  // namespace vestara
