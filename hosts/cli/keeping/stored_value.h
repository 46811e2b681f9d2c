#pragma once

#include <string>

#include "automation/variant.h"
#include "hosts/cli/output/output.h"

// Values of an archive that other programs write, too, so that any of them may be anything.

namespace vestara::host {

/// "2005-02-09", with the time of day when there is one; any other value as text, "" for Null and Empty.
std::string stored_text(const automation::Variant& value);

/// A whole number as a number, Null and Empty as absent, anything else as `stored_text`.
Cell stored_cell(const automation::Variant& value);

}  // namespace vestara::host
