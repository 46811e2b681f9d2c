#pragma once  // installed

#include <span>
#include <string>
#include <string_view>

#include "automation/variant.h"
#include "vestara/foundation/export.h"

// The recurring pieces of statement texts. Their output is compared character by character by databases and
// tests alike: blanks, case and punctuation are part of it.

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

/// The pieces of a wheel list, each between quotes, joined by ",": BA,CA gives 'BA','CA'. Pieces are not trimmed,
/// so a trailing comma gives an empty wheel: kept on purpose. With `all`, the eleven aliases of the wheel table.
enum class WheelChoice : bool { listed, all };
VESTARA_API std::string FormatRuoteToSql(std::string_view wheels, WheelChoice choice);
/// The same text without a trap of its own.
std::string quoted_wheels(std::string_view wheels);

/// A date and a time for display: "DD/MM/YYYY", two blanks, "HH.nn" (or "HH.nn.ss"); the one alone, without
/// blanks, when the other is Null; `default_text` when nothing comes of it.
enum class Seconds : bool { hidden, shown };
VESTARA_API automation::Variant DT_READ(const automation::Variant& date, const automation::Variant& time,
                                        std::string_view default_text, Seconds seconds);

/// " WHERE " and the condition, or "" when the condition trims to nothing.
std::string where_clause(std::string_view condition);

/// "(column>=literal)" written as `prefix` + literal + ")": empty when the bound is missing or Null. A bound that
/// is no date gives the literal NULL, which no row satisfies.
std::string date_clause(std::string_view prefix, const automation::Variant& bound);
/// The clauses of both bounds, joined: "(column >='1945-01-04') AND (column <='1999-12-29')".
std::string period_condition(std::string_view column, const automation::Variant& from, const automation::Variant& to);

/// One term for every quoted alias that is not blank, joined by " OR ": `prefix` + alias + `suffix`. No parentheses.
std::string wheel_terms(std::string_view prefix, std::span<const std::string_view> quoted,
                        std::string_view suffix = {});
/// "(" + condition + ")", or "" when the condition trims to nothing.
std::string in_parentheses(std::string_view condition);

}  // namespace vestara
