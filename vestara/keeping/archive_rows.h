#pragma once  // for hosts

#include <cstddef>
#include <functional>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// Order inside one date: RN behind VE, or between RM and TO.
enum class WheelOrder : bool { by_enumerator, by_code };

/// Hands over the draws of the archive, oldest first, until `take` says false. Returns how many rows were passed
/// over because they lack a date, a known wheel or one of the five numbers: no draw was held there. Each of them goes
/// to `pass_over`.
VESTARA_API size_t read_draws(const Archive& archive, WheelOrder order, const std::function<bool(const DrawRow&)>& take,
                              const std::function<void(RecordSet&)>& pass_over = {});

}  // namespace vestara
