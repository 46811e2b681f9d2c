#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "automation/export.h"

namespace vestara {

/// The enumerator of a wheel by its code or its name, in any case, blanks around it ignored: "BA", "roma", "RO",
/// "NZ", "Nazionale".
VESTARA_API std::optional<int8_t> wheel_named(std::string_view name);

/// "BA" and "Bari" of wheels 1 to 11.
VESTARA_API std::string_view wheel_code(int32_t wheel);
VESTARA_API std::string_view wheel_name(int32_t wheel);

/// Codes in the order of their enumerators, for messages.
inline constexpr std::string_view wheel_choices = "BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN";
/// The ten wheels of the cities: what the game itself calls "tutte".
inline constexpr std::string_view city_codes = "BA,CA,FI,GE,MI,NA,PA,RM,TO,VE";

}  // namespace vestara
