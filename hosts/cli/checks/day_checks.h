#pragma once

#include <vector>

#include "hosts/cli/checks/draw_days.h"
#include "hosts/cli/checks/finding.h"

namespace vestara::host {

/// What is wrong with the days of an archive, sorted: dates in the future, dates with one wheel only, two contests on a
/// date, contest numbers that are out of order or beyond the dates of their year. An archive may begin in the middle of
/// a year; one that has a single wheel keeps only that.
Findings day_findings(const std::vector<DrawDay>& days, int32_t today);

/// Days that the public files have with one wheel, which is that of a draw some days before or behind: history.
int64_t known_stray_days(const std::vector<DrawDay>& days);

}  // namespace vestara::host
