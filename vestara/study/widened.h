#pragma once  // for hosts

#include "vestara/foundation/export.h"

namespace vestara {

/// The number that the digits of a short one mean: 9.8, not 9.80000019.
VESTARA_API double widened(float number);

}  // namespace vestara
