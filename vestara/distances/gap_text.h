#pragma once

#include <cstdint>
#include <string>

#include "vestara/distances/gap_list.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// One row per draw of the period and hit on its date: the draw's date, then date, wheel, contest number and count of
/// hits ("numeriTrovati") of the hit, all Null where the date had none. Blanks and capitals are uneven. They are the
/// contract's and stay as they are.
VESTARA_API std::string gap_statement(const GapQuestion& question);

}  // namespace vestara
