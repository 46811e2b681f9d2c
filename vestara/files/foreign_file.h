#pragma once

#include <optional>
#include <string_view>

namespace vestara {

/// What a file is that holds no draws in a form that is read here.
struct ForeignKind {
  std::string_view name;    ///< "a PDF document"
  std::string_view remedy;  ///< what would be right
};

/// Nothing when the beginning is not that of a kind that is known.
std::optional<ForeignKind> foreign_kind(std::string_view bytes);

}  // namespace vestara
