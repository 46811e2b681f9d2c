#pragma once

#include "automation/com/faces/dispatch.h"
#include "automation/com/faces/native.h"

namespace automation::com {

/// This library, as its sisters see it.
NativeLibrary& own_library();

/// Called once by a face whose last count is gone.
void forget_face(const Object& object, const Dispatch& face);

}  // namespace automation::com
