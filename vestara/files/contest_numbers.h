#pragma once

#include <cstdint>
#include <vector>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"

// A contest number is the place of a date among the draw dates of its calendar year, from 1.

namespace vestara {

/// The days of rows that are sorted by date, each once.
VESTARA_API std::vector<int32_t> days_of(const std::vector<DrawRow>& rows);
/// Both sorted, each day once.
VESTARA_API std::vector<int32_t> united(const std::vector<int32_t>& left, const std::vector<int32_t>& right);

/// Gives the rows without a contest number the place of their date among `days`, which are sorted and hold each of them
/// once.
VESTARA_API void number_contests(std::vector<DrawRow>& rows, const std::vector<int32_t>& days);
/// The same among their own days; sorted by date.
VESTARA_API void number_contests(std::vector<DrawRow>& rows);

}  // namespace vestara
