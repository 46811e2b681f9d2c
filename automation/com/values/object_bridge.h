#pragma once

#include "automation/com/system/platform.h"
#include "automation/object.h"
#include "automation/ref.h"

namespace automation::com {

/// How COM sees an object, counted for the caller; null for nothing. An object shows the same face as long as anybody
/// holds that; a host's object comes back as the host gave it.
IDispatch* hand_out(const Ref<Object>& object);

/// The object behind an interface: one of this library's own, one of a sister library of the same build, or one that
/// calls its host. Nothing for null. Error 430 for an interface that cannot be called by name.
Ref<Object> take_in(IUnknown* object);

}  // namespace automation::com
