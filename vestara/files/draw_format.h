#pragma once  // for hosts

#include <string_view>

#include "vestara/foundation/export.h"

namespace vestara {

/// The three forms in which draws come and go as text.
enum class DrawFormat {
  tsv,     ///< the operator's: date, wheel, five numbers between tabs, no header
  csv,     ///< "," or ";" between fields; a header names the columns
  update,  ///< the library's own: "*" between records, "#" between fields
};

VESTARA_API std::string_view format_name(DrawFormat format);

}  // namespace vestara
