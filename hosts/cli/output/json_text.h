#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace vestara::host {

/// One line without a break at its end, or with `indent` several. Control characters that a terminal would obey are
/// escaped and read back as the same text. Bytes that are no UTF-8 become replacement characters.
std::string json_text(const nlohmann::ordered_json& value, int indent = -1);

}  // namespace vestara::host
