#pragma once  // for hosts

#include <string>

#include "automation/variant.h"
#include "vestara/foundation/export.h"

// Values of an archive that other programs write, too, so that any of them may be anything.

namespace vestara {

/// "2005-02-09", with the time of day when there is one; any other value as text, "" for Null and Empty.
VESTARA_API std::string stored_text(const automation::Variant& value);

}  // namespace vestara
