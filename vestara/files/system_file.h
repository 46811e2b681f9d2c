#pragma once  // for hosts

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara {

/// Something to say about a line of a file.
struct LineNote {
  size_t line = 0;  ///< from 1
  std::string text;
};

/// A system in a file: a combination a line.
struct SystemFile {
  std::string combinations;  ///< as the library takes them: "1,2,3", CR LF between lines
  size_t count = 0;
  size_t size = 0;                    ///< numbers of the longest combination
  std::vector<LineNote> odd_lengths;  ///< combinations that are not as long as the first
};

/// Reads numbers of 1 to 90 between commas, blanks or tabs, with LF or CR LF, with or without a byte-order mark; "#"
/// begins a comment. `name` stands for the file in messages. Failure (file) when it holds no combination, and for
/// lines in error, which it names.
VESTARA_API SystemFile parse_system_file(std::string_view text, const std::string& name);

/// The same for the file behind a path, "-" being standard input.
VESTARA_API SystemFile read_system_file(const std::string& path);

/// The first twenty notes, a line each, every one after a line break; then how many more there are.
VESTARA_API std::string listed_notes(const std::vector<LineNote>& notes);

}  // namespace vestara
