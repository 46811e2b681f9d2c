#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "automation/error.h"
#include "automation/variant.h"
#include "vestara/draws/draw_period.h"
#include "vestara/draws/wheel_set.h"
#include "vestara/foundation/export.h"
#include "vestara/study/figures.h"
#include "vestara/study/number_set.h"

// The words of a question into values. What cannot be read is error 5, whose sentence names the value and what would be
// right.

namespace vestara::study {

/// Codes in any order, joined by ","; "cities" or "tutte" for the ten without RN; "all" or nothing for the eleven. In
/// any case, blanks around a word do not matter; a wheel stands once, a word for several stands alone.
VESTARA_API WheelSet wheels_in(std::string_view text);

/// Numbers from 1 to 90 and ranges ("1..16") between commas, hyphens, points or blanks; each number once, one at least.
VESTARA_API Numbers numbers_in(std::string_view text);

/// Number lists joined by ";", or the name of a family (set_families.h).
VESTARA_API std::vector<NamedNumbers> sets_in(std::string_view text);

/// Two dates, each a Date or a text that reads as one; Missing, Empty and Null are no bound. The first lies not after
/// the second.
VESTARA_API DrawPeriod period_in(const automation::Variant& since, const automation::Variant& until);

/// "delay", "times", "record" or "z", in any case.
VESTARA_API RankedBy ranked_by(std::string_view word);

/// How many wheels a bet is played on: a whole number from 1 to 11, the wheels of a text, or one when nothing is given.
VESTARA_API int32_t wheels_played(const automation::Variant& wheels);

/// `value` when it lies between two bounds, both included; the largest number is no bound. `name` is the parameter's.
VESTARA_API int32_t within(std::string_view name, int32_t value, int32_t least, int32_t most);

/// How many hits a question may ask of so many numbers: all of them, or the five that are drawn.
int32_t most_hits(size_t numbers);

}  // namespace vestara::study
