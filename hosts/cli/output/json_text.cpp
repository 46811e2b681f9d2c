#include "hosts/cli/output/json_text.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "automation/text/shown_text.h"
#include "automation/text/utf8.h"

namespace vestara::host {
namespace {

/// What would give a terminal orders as "\u202e", which reads back as the same text. JSON has escaped what is below a
/// blank already, so that no such character has more than three bytes.
std::string escaped(std::string_view json) {
  std::string text;
  while (!json.empty()) {
    const automation::Utf8Character character = automation::first_character(json);
    const std::string_view piece = json.substr(0, character.size);
    const bool may_be_shown = character.code < 0x7F || automation::shown_text(piece) == piece;
    if (may_be_shown) {
      text += piece;
    } else {
      std::array<char, 7> code{};
      std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(character.code));
      text += code.data();
    }
    json.remove_prefix(character.size);
  }
  return text;
}

}  // namespace

std::string json_text(const nlohmann::ordered_json& value, int indent) {
  return escaped(value.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
}

}  // namespace vestara::host
