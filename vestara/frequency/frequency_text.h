#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "automation/variant.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// The draws that delays and frequencies are taken from.
struct DrawSelection {
  std::vector<std::string_view> wheel_items;  ///< quoted aliases; none means no wheel condition
  const automation::Variant& from;
  const automation::Variant& to;
};

// The wheel terms stand without parentheses on purpose: with several wheels, period and other conditions bind to the
// first one only, and all rows of the others come back.

/// The draws newest first: wheel and five numbers.
VESTARA_API std::string delay_statement(const DrawSelection& selection);
/// One row per wheel and number, with its count "num", the largest first.
VESTARA_API std::string frequency_statement(const DrawSelection& selection);
/// One row per date on which one of the wheels drew.
VESTARA_API std::string draw_dates_statement(const DrawSelection& selection);
/// The draws since a day, newest first: date, wheel and five numbers.
VESTARA_API std::string analytic_statement(automation::Date from);

}  // namespace vestara
