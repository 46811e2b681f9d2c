#pragma once

#include "automation/com/system/platform.h"
#include "automation/object.h"
#include "automation/ref.h"

namespace automation::com {

/// An IEnumVARIANT over the items of a collection (one whose class has a first item). It asks for an item when the walk
/// reaches it.
HRESULT new_enumerator(const Ref<Object>& object, VARIANT* result);

}  // namespace automation::com
