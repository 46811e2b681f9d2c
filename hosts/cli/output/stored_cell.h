#pragma once

#include "automation/variant.h"
#include "hosts/cli/output/output.h"

namespace vestara::host {

/// A value of an archive: a whole number as a number, Null and Empty as absent, anything else as its text.
Cell stored_cell(const automation::Variant& value);

}  // namespace vestara::host
