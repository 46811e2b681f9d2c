#pragma once

#include <cmath>

#include "automation/error.h"

// Arithmetic in double precision by the contract's rules: what has no finite value is an error.

namespace automation {

/// `value`. Error 6 when it is not finite.
inline double finite(double value) {
  if (!std::isfinite(value)) throw overflow();
  return value;
}

/// Error 11 for a division by zero, 6 for 0/0 and for a quotient that is too large.
inline double quotient(double dividend, double divisor) {
  if (divisor == 0 && dividend != 0) throw division_by_zero();
  return finite(dividend / divisor);
}

/// Error 5 for a negative number.
inline double square_root(double value) {
  if (value < 0) throw invalid_call();
  return finite(std::sqrt(value));
}

}  // namespace automation
