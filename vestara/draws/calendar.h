#pragma once  // for hosts

#include <cstdint>
#include <vector>

#include "vestara/foundation/export.h"

// When the game draws. Days count from 1899-12-30. Holidays, which move a draw by a day, are not known here.

namespace vestara {

/// 1871-01-07.
VESTARA_API int32_t first_draw_day();
/// The first draw of a wheel (1 to 11).
VESTARA_API int32_t first_draw_day(int32_t wheel);
/// True when the rule of its time puts a draw on that day: Saturdays from the start, Wednesdays too from 1997-03-12,
/// Tuesdays, Thursdays and Saturdays from 2005-06-21, Fridays too from 2023-07-07.
VESTARA_API bool is_draw_day(int32_t day);
/// True when the wheel (1 to 11) took part in the draws of that day.
VESTARA_API bool is_drawn_on(int32_t wheel, int32_t day);
/// The wheels that took part in the draws of a day, by enumerator.
VESTARA_API std::vector<int8_t> wheels_of_day(int32_t day);

}  // namespace vestara
