#pragma once

#include <cstddef>
#include <limits>
#include <nlohmann/json_fwd.hpp>

#include "automation/variant.h"

namespace vestara::host {

inline constexpr size_t every_row = std::numeric_limits<size_t>::max();

/// A value as JSON: a Date as "2005-02-09" or "2005-02-09T10:30:00", an array as nested arrays with the first index
/// outermost, an open record set as an array of objects from its current row on (`most_rows` of them), any other
/// object as {"object": "Vestara.cLotto"}; null for Empty, Null, Missing and nothing. Reading rows moves the record
/// set.
nlohmann::ordered_json json_of(const automation::Variant& value, size_t most_rows = every_row);

}  // namespace vestara::host
