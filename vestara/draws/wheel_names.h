#pragma once  // for hosts

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vestara/foundation/export.h"

namespace vestara {

/// The enumerator of a wheel by its code or its name, in any case, blanks around it ignored: "BA", "roma", "RO",
/// "NZ", "Nazionale".
VESTARA_API std::optional<int8_t> wheel_named(std::string_view name);

/// "BA" and "Bari" of wheels 1 to 11.
VESTARA_API std::string_view wheel_code(int32_t wheel);
VESTARA_API std::string_view wheel_name(int32_t wheel);

/// "BA, CA, …": all codes in the order of their enumerators, for messages.
VESTARA_API std::string wheel_choices();
/// "BA,CA,…,VE": the ten wheels of the cities, what the game itself calls "tutte".
VESTARA_API std::string city_codes();

}  // namespace vestara
