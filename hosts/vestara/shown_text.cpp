#include "hosts/vestara/shown_text.h"

#include "automation/date.h"

namespace vestara::host {

std::string shown(std::string_view text) {
  constexpr size_t longest = 40;
  std::string result = "\"";
  for (const char c : text.substr(0, longest)) {
    const auto byte = static_cast<unsigned char>(c);
    result += byte < 0x20 || byte == 0x7F ? '?' : c;
  }
  return result += text.size() > longest ? "…\"" : "\"";
}

std::string counted(size_t count, std::string_view noun) {
  std::string result = std::to_string(count) + " ";
  result += noun;
  if (count != 1) result += 's';
  return result;
}

std::string shown_day(int32_t day) { return automation::iso_day(automation::Date::from_day(day)); }

}  // namespace vestara::host
