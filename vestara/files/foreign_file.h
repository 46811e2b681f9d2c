#pragma once

#include <optional>
#include <string_view>

namespace vestara {

/// A known kind of file that is no file of draws.
struct ForeignKind {
  std::string_view name;    ///< "a PDF document"
  std::string_view remedy;  ///< what would be right
};

/// The kind of a file by its first bytes; nothing when they are of none of these kinds.
std::optional<ForeignKind> foreign_kind(std::string_view bytes);

}  // namespace vestara
