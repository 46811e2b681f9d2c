#pragma once

#include <cstdint>
#include <optional>

#include "vestara/draws/draw_sequence.h"
#include "vestara/draws/occurrences.h"
#include "vestara/study/chance/hit_chance.h"
#include "vestara/study/figures.h"

namespace vestara::study {

/// Times above what is expected, in standard deviations.
std::optional<double> deviation(int32_t times, const Expectation& expected);

Figures figures_of(const DrawSequence& sequence, const Occurrences& found, const Expectation& expected);

}  // namespace vestara::study
