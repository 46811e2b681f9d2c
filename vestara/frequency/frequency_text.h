#pragma once

#include <string>

#include "automation/date.h"
#include "automation/variant.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"

namespace vestara {

/// The draws newest first: wheel and five numbers.
VESTARA_API std::string delay_statement(const DrawSelection& selection, PeriodBinding binding);
/// One row per wheel and number, with its count "num", the largest first.
VESTARA_API std::string frequency_statement(const DrawSelection& selection, PeriodBinding binding);
/// One row per date on which one of the wheels drew.
VESTARA_API std::string draw_dates_statement(const DrawSelection& selection, PeriodBinding binding);
/// The draws since a day, newest first: date, wheel and five numbers.
VESTARA_API std::string analytic_statement(automation::Date from);

}  // namespace vestara
