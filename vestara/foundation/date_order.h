#pragma once  // installed

#include <string_view>

namespace vestara {

/// The way a walk takes through the draws of a period.
enum class DateOrder : bool { newest_first, oldest_first };

constexpr DateOrder date_order(bool ascending) { return ascending ? DateOrder::oldest_first : DateOrder::newest_first; }

/// The word of its ORDER BY.
constexpr std::string_view order_word(DateOrder order) { return order == DateOrder::oldest_first ? "ASC" : "DESC"; }

}  // namespace vestara
