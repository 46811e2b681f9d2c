#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "hosts/vestara/draw_collector.h"

namespace vestara::host {

/// The three forms in which draws come and go as text.
enum class DrawFormat {
  tsv,     ///< the operator's: date, wheel, five numbers between tabs, no header
  csv,     ///< with a header that names its columns
  update,  ///< the library's own: "*" between records, "#" between fields
};

std::string_view format_name(DrawFormat format);

/// The form of a text by what it begins with; nothing when it is none.
std::optional<DrawFormat> recognise(std::string_view text);

struct DrawFile {
  DrawFormat format = DrawFormat::csv;
  CollectedDraws draws;
};

/// Reads a whole file of any of the three forms, with LF or CRLF, with or without a byte-order mark. `name` stands
/// for the file in messages. Failure (file) when it is empty, of no known form or without usable header.
DrawFile parse_draw_file(std::string_view text, const std::string& name);

/// Failure (file) that names the rejected rows, the first twenty of them; nothing when there are none.
void refuse_rejected(const DrawFile& file, const std::string& name);

}  // namespace vestara::host
