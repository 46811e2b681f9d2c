#pragma once

#include "automation/member.h"

namespace vestara {

// The outgoing interface of cLotto. Raised by the history import only.
extern const automation::Event loading_start;
extern const automation::Event loading_progress;  ///< recPos, recCount
extern const automation::Event loading_end;

}  // namespace vestara
