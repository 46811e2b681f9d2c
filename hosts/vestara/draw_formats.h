#pragma once

#include <string_view>

#include "hosts/vestara/draw_collector.h"

// The rows of each form, handed over field by field. Texts come without a byte-order mark.

namespace vestara::host {

/// The text behind a byte-order mark, when there is one.
std::string_view without_mark(std::string_view text);
/// Takes one line off the front, without its line break.
std::string_view take_line(std::string_view& rest);
/// True for lines without any content.
bool is_blank_line(std::string_view line);

void collect_tsv(std::string_view text, DrawCollector& draws);
/// Failure (file) when the header does not name date, wheel and n1 to n5.
void collect_csv(std::string_view text, const std::string& name, DrawCollector& draws);
void collect_update(std::string_view text, DrawCollector& draws);

}  // namespace vestara::host
