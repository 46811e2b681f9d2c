#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace vestara::host {

/// One line without a break at its end, or with `indent` several. What would give a terminal orders is escaped, which
/// reads back as the same text; bytes that are no UTF-8 become replacement characters.
std::string json_text(const nlohmann::ordered_json& value, int indent = -1);

}  // namespace vestara::host
