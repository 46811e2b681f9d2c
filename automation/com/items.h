#pragma once

#include "automation/com/platform.h"
#include "automation/member.h"
#include "automation/ref.h"

namespace automation::com {

/// Whether hosts can walk the objects of a class: it has Count, and Item as its default member.
bool is_walked(const ClassDescription& description);

/// An IEnumVARIANT over the items of such an object, each asked for when its turn comes.
HRESULT new_enumerator(const Ref<Object>& object, VARIANT* result);

}  // namespace automation::com
