#pragma once

#include "automation/com/system/platform.h"
#include "automation/object.h"
#include "automation/ref.h"

namespace automation::com {

/// An object whose members are those of a host's own: a script's class, another vendor's component. Error 430 when it
/// cannot be called by name. What its calls raise is raised here.
Ref<Object> host_object(IUnknown* given);

/// What the host gave, counted for the caller; null when the object is none of a host's.
IDispatch* given_by_host(const Object& object);

}  // namespace automation::com
