#pragma once

#include <string>
#include <string_view>

namespace dorvane {

/// The statement with a further term in its last ORDER BY, so that rows which compare equal come in one order on
/// every engine and under every index: equal dates by ascending row key, or by contest number where draws are
/// listed; hits of one date by wheel; equal counts by their groups. A statement of another form, or with an order
/// of several terms, comes back byte for byte.
std::string with_tie_order(std::string_view statement);

}  // namespace dorvane
