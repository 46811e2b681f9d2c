#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vestara::host {

/// The enumerator of a wheel by its code or its name, in any case, blanks around it ignored: "BA", "roma", "RO",
/// "NZ", "Nazionale".
std::optional<int8_t> wheel_named(std::string_view name);

/// "BA" and "Bari" of wheels 1 to 11.
std::string_view wheel_code(int32_t wheel);
std::string_view wheel_name(int32_t wheel);

/// Codes in the order of their enumerators, for messages.
inline constexpr std::string_view wheel_choices = "BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN";
/// The ten wheels of the cities: what the game itself calls "tutte".
inline constexpr std::string_view city_codes = "BA,CA,FI,GE,MI,NA,PA,RM,TO,VE";

}  // namespace vestara::host
