#include "vestara/foundation/message_text.h"

#include "automation/date.h"

namespace vestara {

std::string counted(size_t count, std::string_view noun) {
  std::string result = std::to_string(count) + " ";
  result += noun;
  if (count != 1) result += 's';
  return result;
}

std::string shown_day(int32_t day) { return automation::iso_day(automation::Date::from_day(day)); }

}  // namespace vestara
