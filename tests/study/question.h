#pragma once

#include <map>
#include <string>
#include <vector>

#include "automation/object.h"
#include "automation/variant.h"
#include "tests/support/recordset.h"

namespace study_test {

using testing_support::Table;

/// The members that answer record sets, each with its parameters in their order.
const std::map<std::string, std::vector<std::string>>& members();

/// One call of a member of Study.
struct Question {
  std::string member;
  std::map<std::string, automation::Variant> given;  ///< by parameter; others are left out
  size_t positional = 99;                            ///< so many parameters by place, the others by name
};

/// "Groups(Size:=2, By:=z)".
std::string shown(const Question& question);

/// Calls the member by name and walks its record set. Raises what the member raises.
automation::Variant ask(automation::Object& study, const Question& question);

enum class Walk { by_interface, by_name };
/// Every row, as a host reads it.
Table rows_of(const automation::Variant& answer, Walk walk);

/// What differs, row and column named; "" when nothing does. Texts, dates and counts must be equal in kind and value,
/// fractions to 1e-9 of their size; z and a statistic, which are differences, to 1e-9 of 1 at least.
std::string difference(const Table& wanted, const Table& seen);

}  // namespace study_test
