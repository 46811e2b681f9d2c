#pragma once

#include "automation/com/system/platform.h"
#include "automation/variant.h"

namespace automation::com {

/// The elements of a host's array, of any element type that `from_value` takes. Null is an array without dimensions.
Array from_safe_array(SAFEARRAY* array);

/// A new array, which the caller destroys, of elements of this type. Error 13 when one does not fit.
SAFEARRAY* to_safe_array(const Array& array, VARTYPE element);

}  // namespace automation::com
