#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "automation/date.h"
#include "automation/error.h"
#include "automation/variant.h"

namespace testing_support {

/// The number of the run-time error that `body` raises; 0 when it raises none.
template <class Body>
int32_t error_of(Body&& body) {
  try {
    body();
    return 0;
  } catch (const automation::RunTimeError& error) {
    return error.number();
  }
}

/// True when `body` raises what typed functions raise for a statement that the connector refused.
template <class Body>
bool is_refused(Body&& body) {
  try {
    body();
    return false;
  } catch (const automation::RunTimeError& error) {
    return error.kind() == automation::FailureKind::database;
  }
}

/// Kind and value: "Integer 7", "text abc", "Null".
std::string describe(const automation::Variant& value);

/// What a computation gave, or "error 13".
template <class Body>
std::string outcome(Body&& body) {
  try {
    return describe(automation::Variant(body()));
  } catch (const automation::RunTimeError& error) {
    return "error " + std::to_string(error.number());
  }
}

/// A date that must exist.
automation::Date day(int32_t year, int32_t month, int32_t day);
automation::Date moment(const automation::CivilTime& parts);

}  // namespace testing_support

namespace automation {
/// How a failed expectation shows a value.
void PrintTo(const Variant& value, std::ostream* out);
void PrintTo(const CivilTime& time, std::ostream* out);
}  // namespace automation
