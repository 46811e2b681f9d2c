#include "vestara/foundation/combination_lines.h"

#include "automation/text.h"

namespace vestara {

std::vector<std::string_view> combination_lines(std::string_view combinations) {
  return automation::split(combinations, line_break);
}

}  // namespace vestara
