#include "vestara/draws/wheel_names.h"

#include <array>
#include <span>

#include "automation/text.h"
#include "vestara/foundation/schema.h"

namespace vestara {
namespace {

/// By enumerator from 1, as the aliases.
constexpr std::array<std::string_view, wheel_aliases.size()> known_names{
    "Bari", "Cagliari", "Firenze", "Genova", "Milano", "Napoli", "Palermo", "Roma", "Torino", "Venezia", "Nazionale"};

struct OtherName {
  std::string_view name;
  int8_t wheel;
};

constexpr std::array<OtherName, 3> other_names{{{"RO", 8}, {"NZ", 11}, {"Ruota Nazionale", 11}}};

std::string codes_joined(std::span<const std::string_view> codes, std::string_view separator) {
  std::string text;
  for (const std::string_view code : codes) text.append(text.empty() ? "" : separator).append(code);
  return text;
}

}  // namespace

std::optional<int8_t> wheel_named(std::string_view name) {
  name = automation::trim(name);
  for (size_t i = 0; i < known_names.size(); ++i) {
    const std::string_view known = name.size() == 2 ? wheel_aliases[i] : known_names[i];
    if (automation::equal_ignoring_case(name, known)) return static_cast<int8_t>(i + 1);
  }
  for (const OtherName& other : other_names)
    if (automation::equal_ignoring_case(name, other.name)) return other.wheel;
  return std::nullopt;
}

std::string_view wheel_code(int32_t wheel) { return wheel_aliases.at(static_cast<size_t>(wheel - 1)); }
std::string_view wheel_name(int32_t wheel) { return known_names.at(static_cast<size_t>(wheel - 1)); }

std::string wheel_choices() { return codes_joined(wheel_aliases, ", "); }
std::string city_codes() { return codes_joined(std::span(wheel_aliases).first(10), ","); }

}  // namespace vestara
