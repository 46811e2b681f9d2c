#pragma once

#include "automation/com/system/platform.h"

// The keys by which hosts find the classes of this library: identifier with and without version, class, type library.

namespace automation::com {

/// Writes them for the whole machine where the user may do that, otherwise for the user alone.
HRESULT register_server() noexcept;
/// Removes those of both places; keys that are not there are no failure.
HRESULT unregister_server() noexcept;

}  // namespace automation::com
