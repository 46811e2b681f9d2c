#include "vestara/draws/wheel_set.h"

#include "automation/text.h"
#include "vestara/draws/wheel_names.h"

namespace vestara {

int32_t wheel_of_code(std::string_view code) {
  // Archives mostly write their wheels as they stand here: eleven comparisons of two bytes.
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel)
    if (wheel_code(wheel) == code) return wheel;
  code = automation::trim(code);
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel)
    if (automation::equal_ignoring_case(wheel_code(wheel), code)) return wheel;
  return 0;
}

std::vector<int32_t> WheelSet::wheels() const {
  std::vector<int32_t> found;
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel)
    if (contains(wheel)) found.push_back(wheel);
  return found;
}

std::string WheelSet::name() const {
  if (*this == cities()) return "tutte";
  if (*this == all()) return "all";
  std::string joined;
  for (const int32_t wheel : wheels()) joined.append(joined.empty() ? "" : "+").append(wheel_code(wheel));
  return joined;
}

}  // namespace vestara
