#pragma once

#include <string>
#include <string_view>

#include "vestara/files/draw_collector.h"

// The rows of each form, handed over field by field. Texts come without a byte-order mark.

namespace vestara {

/// The text after a byte-order mark, when there is one.
std::string_view without_mark(std::string_view text);
/// Takes one line off the front, without its line break: LF, CR LF or CR.
std::string_view take_line(std::string_view& rest);
/// True for lines without any content.
bool is_blank_line(std::string_view line);

/// Rows of fields between separators.
struct DrawTable {
  std::string name;  ///< of the file, in messages
  char separator = ',';
};
/// With or without a header; columns as in file_columns.h. Failure (file) when the first line does not say what stands
/// where.
void collect_table(std::string_view text, const DrawTable& table, DrawCollector& draws);
void collect_update(std::string_view text, DrawCollector& draws);

}  // namespace vestara
