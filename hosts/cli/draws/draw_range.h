#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/cli/options/number_options.h"

namespace vestara::host {

/// " WHERE " and what the draws of a range fulfil, or nothing when there is no condition.
std::string range_condition(const DrawRange& range);

/// The enumerators of the chosen wheels, in order.
std::vector<int16_t> chosen_wheels(const WheelSelection& wheels);

/// The wheel lists that cFrequenza is asked with, one after the other: with several wheels it applies the period to
/// the first one only, so that each is then asked for by itself.
std::vector<WheelSelection> wheel_loads(const DrawRange& range);

/// What to tell about that; empty when one load will do.
std::string note_on_loads(const DrawRange& range);

}  // namespace vestara::host
