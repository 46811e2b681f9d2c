#pragma once  // for hosts

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/variant.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"

namespace vestara {

/// Which wheels somebody looks at.
struct WheelSelection {
  bool all = true;
  std::string codes;  ///< "BA,NA"; empty for all
};

/// The draws that somebody looks at. Days count from 1899-12-30.
struct DrawRange {
  WheelSelection wheels;
  std::optional<int32_t> from;
  std::optional<int32_t> to;
};

/// A bound as the library takes it.
VESTARA_API automation::Variant date_bound(std::optional<int32_t> day);

/// The same draws as a typed function takes them.
VESTARA_API DrawSelection selection_of(const DrawRange& range);

/// " WHERE " and the condition that the draws of a range meet; "" when there is none.
VESTARA_API std::string range_condition(const DrawRange& range);

/// The enumerators of the chosen wheels, in order.
VESTARA_API std::vector<int16_t> chosen_wheels(const WheelSelection& wheels);

/// The wheel lists to ask cFrequenza with, one after the other. With several wheels it applies the period to the first
/// one only: each wheel is then asked for by itself.
VESTARA_API std::vector<WheelSelection> wheel_loads(const DrawRange& range);

/// What to tell about that; empty when one load will do.
VESTARA_API std::string note_on_loads(const DrawRange& range);

}  // namespace vestara
