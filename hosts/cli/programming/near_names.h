#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vestara::host {

/// The names that somebody who wrote `wanted` may have meant, joined by ", ": those that hold it, and those that a few
/// letters tell apart. Empty when there is none.
std::string near_names(std::string_view wanted, const std::vector<std::string>& names);

/// "a, b, c".
std::string name_list(const std::vector<std::string>& names);

}  // namespace vestara::host
