#pragma once

#include "automation/com/system/platform.h"

namespace automation::com {

/// What the type library inside this library says about an interface or a class.
HRESULT type_info(const GUID& id, ITypeInfo** info) noexcept;

/// That type library, counted for the caller.
HRESULT own_type_library(ITypeLib** library) noexcept;

}  // namespace automation::com
