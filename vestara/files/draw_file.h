#pragma once  // for hosts

#include <optional>
#include <string>
#include <string_view>

#include "vestara/files/draw_collector.h"
#include "vestara/files/draw_format.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// The form of a text by what it begins with; nothing when it is none.
VESTARA_API std::optional<DrawFormat> recognise(std::string_view text);

struct DrawFile {
  DrawFormat format = DrawFormat::csv;
  CollectedDraws draws;
};

/// Reads a whole file of any of the three forms: UTF-8 or UTF-16, lines that end with LF, CR LF or CR, with or without
/// a byte-order mark, tables with or without a header. `name` stands for the file in messages. Failure (file) when it
/// is empty, something else than a file of draws, or without usable columns.
VESTARA_API DrawFile parse_draw_file(std::string_view text, const std::string& name);

/// Failure (file) that names the rejected rows, the first twenty of them; nothing when there are none.
VESTARA_API void refuse_rejected(const DrawFile& file, const std::string& name);

}  // namespace vestara
