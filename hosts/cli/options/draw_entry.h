#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/draws/draw_row.h"

// A draw that is typed in: its numbers and its wheels. Rows are sorted by wheel.

namespace vestara::host {

/// The rows of a line: five numbers for each wheel of that day in the order BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN,
/// or wheels each with its numbers after it, as in "VE 53,31,88,28,77". Commas, semicolons and blanks separate. Failure
/// (usage).
std::vector<DrawRow> read_draw_line(std::string_view line, int32_t day);

/// The rows of the day in a file of draws; "-" is standard input. Failure (file) when it has none.
std::vector<DrawRow> rows_in_file(const std::string& path, int32_t day);

/// Failure (usage) for a wheel that was not drawn yet, and without one that always is: all eleven since 2005-05-04.
void require_drawn_wheels(const std::vector<DrawRow>& rows, int32_t day);
/// "BA, VE": the wheels of the day that have no row, each after a prefix.
std::string missing_wheels(const std::vector<DrawRow>& rows, int32_t day, std::string_view prefix = "");

}  // namespace vestara::host
