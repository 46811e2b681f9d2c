#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "automation/export.h"

namespace automation {

/// A universally unique identifier, its bytes in the order in which they are printed.
using Uuid = std::array<uint8_t, 16>;

/// The identifier that belongs to a name of this surface ("Library.Reader", "Library.__Reader"), the same in every
/// build. Method: version 5 of RFC 4122, a SHA-1 hash within the product's own name space (product.h).
AUTOMATION_API Uuid uuid_of(std::string_view name);
/// The same within another name space.
AUTOMATION_API Uuid uuid_of(std::string_view name, const Uuid& name_space);

/// "6ba7b810-9dad-11d1-80b4-00c04fd430c8".
AUTOMATION_API std::string uuid_text(const Uuid& uuid);

}  // namespace automation
