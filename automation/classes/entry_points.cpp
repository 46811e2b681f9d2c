#include "automation/entry_points.h"

#include "automation/registration.h"

namespace {

/// Lies inside this library, wherever it was loaded from.
const int here = 0;

automation::Scope scope_of(int32_t scope) { return scope == 0 ? automation::Scope::user : automation::Scope::system; }

}  // namespace

int32_t automation_register_classes(int32_t scope) {
  return automation::register_from_entry_point(&here, scope_of(scope), automation::Registering::write);
}

int32_t automation_unregister_classes(int32_t scope) {
  return automation::register_from_entry_point(&here, scope_of(scope), automation::Registering::remove);
}
