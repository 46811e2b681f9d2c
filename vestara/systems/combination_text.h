#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara {

// A system's combinations as one text: a combination a line ("1,2,3"), lines separated by CR LF.

/// The text from its first digit to its last. Error 6 for a text that is not blank and holds none.
VESTARA_API std::string_view trimmed_to_digits(std::string_view combinations);

/// The distinct elements of a text that begins and ends with a digit, by ascending number, joined by ",". Elements
/// are compared as texts. Error 13 for one that is no number.
VESTARA_API std::string distinct_elements(std::string_view combinations);

/// The lines rewritten onto other numbers: each element replaced by the new one that stands where it stands among
/// the distinct elements. Lines that become empty are left out. Both lists are equally long.
/// Error 13 for an element that is no number, 9 for a negative one and for one that is not among the old ones.
std::vector<std::string> converted_lines(std::string_view combinations, std::span<const std::string_view> old_elements,
                                         std::span<const std::string_view> new_elements);

/// A line of positions, counted from 1, rewritten as the numbers that stand there. Error 9 for a position outside.
std::string numbers_at(std::string_view positions, std::span<const std::string_view> numbers);

}  // namespace vestara
