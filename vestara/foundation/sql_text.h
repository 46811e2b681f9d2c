#pragma once

#include <string>
#include <string_view>

#include "automation/variant.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"

// Pieces that occur in several statement texts. Blanks, case and punctuation are part of them and the contract's: tests
// compare them character by character.

namespace vestara {

/// A quoted literal of a date part ('2026-11-15'), a time part ('10:14:16') or both ('2026-11-15 10:14:16'); NULL
/// when neither is a date. A part that is missing or not a date counts as absent.
VESTARA_API std::string sqlDateTime(const automation::Variant& date_part,
                                    const automation::Variant& time_part = automation::Missing{});

/// Doubles every quote and every backslash of `value`, in place, and returns it. A value that trims to nothing
/// stays as it is.
VESTARA_API automation::Variant SAPEX(automation::Variant& value);
VESTARA_API std::string SAPEX(std::string& value);

/// Joins two conditions with " AND " or " OR " when neither is empty. A blank text is not empty.
VESTARA_API std::string SqlAnd(std::string_view left, std::string_view right);
VESTARA_API std::string SqlOr(std::string_view left, std::string_view right);

enum class WheelChoice : bool { listed, all };
/// The pieces of a wheel list, each between quotes, joined by ",": BA,CA gives 'BA','CA'. Pieces are not trimmed, so
/// that a trailing comma gives an empty wheel, which is the contract's. With `all`, the eleven aliases of the wheel
/// table.
VESTARA_API std::string FormatRuoteToSql(std::string_view wheels, WheelChoice choice);
/// The listed wheels, with the trap of FormatRuoteToSql: when memory runs out they are every wheel.
WheelFilter formatted_wheels(std::string_view wheels);

enum class Seconds : bool { hidden, shown };
/// A date and a time for display: "DD/MM/YYYY", two blanks, "HH.nn" (or "HH.nn.ss"). One alone, without blanks, when
/// the other is Null; `default_text` when that text is blank.
VESTARA_API automation::Variant DT_READ(const automation::Variant& date, const automation::Variant& time,
                                        std::string_view default_text, Seconds seconds);

/// " WHERE " and the condition, or "" when the condition trims to nothing.
std::string where_clause(std::string_view condition);

/// "'2026-11-15'", or "NULL" for no date.
std::string day_literal(const std::optional<automation::Date>& day);
/// "(column >='2026-11-15')" written as `prefix` + literal + ")"; empty for no bound.
std::string date_clause(std::string_view prefix, const DateBound& bound);
/// The clauses of both bounds, joined: "(column >='1945-01-04') AND (column <='1999-12-29')".
std::string period_condition(std::string_view column, const DateBound& from, const DateBound& to);

/// "(" + condition + ")", or "" when the condition trims to nothing.
std::string in_parentheses(std::string_view condition);

}  // namespace vestara
