#pragma once  // installed

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/export.h"
#include "automation/variant.h"

// The platform's conversions in one place. An object stands for the value of its default member, in tests too. Errors:
// 6 out of range, 13 not convertible, 91 nothing where a value is needed, 94 Null there, 438 no default member.

namespace automation {

/// Nearest whole number, halves to even.
AUTOMATION_API int16_t to_integer(const Variant& value);
AUTOMATION_API int32_t to_long(const Variant& value);
AUTOMATION_API float to_single(const Variant& value);
AUTOMATION_API double to_double(const Variant& value);
/// True is -1 as a number; "True" and "False" are read without regard to case.
AUTOMATION_API bool to_boolean(const Variant& value);
AUTOMATION_API std::string to_text(const Variant& value);
/// Also reads texts that are dates, and numbers as serials.
AUTOMATION_API Date to_date(const Variant& value);

/// The value that an object stands for, that of its default member; every other value as it is. What an assignment
/// without Set stores.
AUTOMATION_API Variant to_plain(const Variant& value);

/// The date of a value that is one: a Date, or a text that reads as a date. Nothing for any other, a number too.
AUTOMATION_API std::optional<Date> date_in(const Variant& value);

/// True for numbers, Booleans, Empty and texts that read as a number whole.
AUTOMATION_API bool is_numeric(const Variant& value);
/// The number that the whole text reads as: sign, digits, a decimal point, an exponent; blanks around it.
AUTOMATION_API std::optional<double> parse_number(std::string_view text);

/// The whole number at the front of a text: blanks, an optional sign, digits. 0 when there are no digits. Error 6
/// beyond 16 bits.
AUTOMATION_API int16_t leading_number(std::string_view text);
/// The number at the front of a text, a decimal point and an exponent included; 0 when there is none.
AUTOMATION_API double leading_double(std::string_view text);

/// Halves to even; error 6 outside the range.
AUTOMATION_API int16_t round_to_integer(double value);
AUTOMATION_API int32_t round_to_long(double value);

/// Up to 15 significant digits, without trailing zeros; an exponent only where the plain form would need more.
AUTOMATION_API std::string number_to_text(double value);

}  // namespace automation
