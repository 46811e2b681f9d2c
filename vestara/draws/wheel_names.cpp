#include "vestara/draws/wheel_names.h"

#include <array>

#include "automation/text.h"

namespace vestara {
namespace {

struct WheelNames {
  std::string_view code;
  std::string_view name;
};

constexpr std::array<WheelNames, 11> known_wheels{{{"BA", "Bari"},
                                                   {"CA", "Cagliari"},
                                                   {"FI", "Firenze"},
                                                   {"GE", "Genova"},
                                                   {"MI", "Milano"},
                                                   {"NA", "Napoli"},
                                                   {"PA", "Palermo"},
                                                   {"RM", "Roma"},
                                                   {"TO", "Torino"},
                                                   {"VE", "Venezia"},
                                                   {"RN", "Nazionale"}}};

struct OtherName {
  std::string_view name;
  int8_t wheel;
};

constexpr std::array<OtherName, 3> other_names{{{"RO", 8}, {"NZ", 11}, {"Ruota Nazionale", 11}}};

}  // namespace

std::optional<int8_t> wheel_named(std::string_view name) {
  name = automation::trim(name);
  for (size_t i = 0; i < known_wheels.size(); ++i) {
    const std::string_view known = name.size() == 2 ? known_wheels[i].code : known_wheels[i].name;
    if (automation::equal_ignoring_case(name, known)) return static_cast<int8_t>(i + 1);
  }
  for (const OtherName& other : other_names)
    if (automation::equal_ignoring_case(name, other.name)) return other.wheel;
  return std::nullopt;
}

std::string_view wheel_code(int32_t wheel) { return known_wheels.at(static_cast<size_t>(wheel - 1)).code; }
std::string_view wheel_name(int32_t wheel) { return known_wheels.at(static_cast<size_t>(wheel - 1)).name; }

}  // namespace vestara
