#pragma once

#include "tests/support/connectors.h"
#include "vestara/foundation/wheels.h"

namespace testing_support {

inline constexpr std::string_view wheels_statement = "SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote";

/// The table `ruote` as archives hold it: BA CA FI GE MI NA PA RM TO VE RN are 1 to 11.
Table canonical_wheels();

/// Wheel tables that nobody has loaded, before and after the test.
class UnloadedWheels {
 public:
  UnloadedWheels() { reset(); }
  ~UnloadedWheels() { reset(); }
  UnloadedWheels(const UnloadedWheels&) = delete;
  UnloadedWheels& operator=(const UnloadedWheels&) = delete;
  static void reset() { vestara::replace_wheel_tables({}); }
};

/// The eleven wheels loaded, and forgotten after the test.
class CanonicalWheels {
 public:
  CanonicalWheels();

 private:
  UnloadedWheels unloaded_;
};

}  // namespace testing_support
