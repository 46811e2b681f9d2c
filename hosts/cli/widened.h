#pragma once

namespace vestara::host {

/// The number that the digits of a short one mean: 9.8, not 9.80000019.
double widened(float number);

}  // namespace vestara::host
