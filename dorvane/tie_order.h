#pragma once

#include <string>
#include <string_view>

#include "dorvane/tokens.h"

namespace dorvane {

/// What to put after the statement's last ORDER BY (",id"), so that rows which compare equal come in one order on every
/// engine and under every index: equal dates by ascending row key, or by contest number where draws are listed; hits of
/// one date by wheel; equal counts by their groups; "" for a statement of another form, or with an order of several
/// terms. Where the engine then refuses the statement, it runs as given.
std::string tie_term(std::string_view statement, const Syntax& syntax);

}  // namespace dorvane
