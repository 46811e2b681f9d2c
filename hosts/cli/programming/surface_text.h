#pragma once

#include <string>

#include "hosts/cli/programming/known_classes.h"

namespace vestara::host {

/// "DbType(value As Integer)", "Find([ByVal dtDa As Variant], [out all As Boolean = False]) As Recordset": optional
/// parameters in brackets, `out` before those that come back changed.
std::string signature(const automation::Member& row);

/// The surface of a class, one line a member in interface order, then its events; the help stands after a "'".
std::string surface_text(const automation::RegisteredClass& known);

}  // namespace vestara::host
