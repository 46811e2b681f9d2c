#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/date.h"

namespace vestara {

/// Removes the rows of one date; none for no date.
std::string draw_delete_statement(const std::optional<automation::Date>& day);
/// All columns of the rows of one date.
std::string draw_select_statement(const std::optional<automation::Date>& day);
/// The row of one wheel. `numbers` are five, joined by ","; with fewer the text is one that databases refuse.
std::string draw_insert_statement(const std::optional<automation::Date>& day, std::string_view alias,
                                  std::string_view numbers, int16_t contest);

}  // namespace vestara
