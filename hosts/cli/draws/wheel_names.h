#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vestara::host {

/// The enumerator of a wheel by its code or its name, in any case, blanks around it ignored: "BA", "roma", "RO",
/// "NZ", "Nazionale".
std::optional<int8_t> wheel_named(std::string_view name);

/// "BA" and "Bari" of wheels 1 to 11.
std::string_view wheel_code(int32_t wheel);
std::string_view wheel_name(int32_t wheel);

/// "BA, CA, …": all codes in the order of their enumerators, for messages.
std::string wheel_choices();
/// "BA,CA,…,VE": the ten wheels of the cities, what the game itself calls "tutte".
std::string city_codes();

}  // namespace vestara::host
